#pragma once
// The import's messages as a command line tells them: one line each on standard error, after
// the program's name, with the progress line wiped first so that the two don't mix.

#include "ProgressLine.h"
#include "coordinates/MessageBox.h"

#include <cstdio>

class StandardErrorMessages : public MessageBox {
public:
    void show(const QString& text) override {
        if (progress)
            progress->clear();
        const QByteArray line = QStringLiteral("geoquill-convert: %1\n").arg(text).toUtf8();
        std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stderr);
    }
    ProgressLine* progress = nullptr;
};
