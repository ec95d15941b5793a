#pragma once
// A message box that records what it was asked to show, in order.

#include "coordinates/MessageBox.h"

#include <QStringList>

class RecordingMessageBox : public MessageBox {
public:
    void show(const QString& text) override { shown << text; }
    QStringList shown;
};
