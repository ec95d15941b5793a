// geoquill-convert: the app's import and Save on a file or standard input, without a window.

#include "ConvertOptions.h"
#include "Converter.h"
#include "OutputBuffer.h"
#include "ProgressLine.h"
#include "SpooledInput.h"
#include "StandardErrorMessages.h"
#include "coordinates/LatLon_UTM.h"
#include "files/ImportMessages.h"

#include <QFile>

#include <csignal>
#include <cstdio>
#include <memory>
#include <unistd.h>

namespace {

void print(std::FILE* stream, const QString& text) {
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stream);
}

int convert(const ConvertOptions& options) {
    StandardErrorMessages messages;
    QFile file;
    SpooledInput spooled;
    QIODevice* input = &file;
    const QString name =
        options.input.isEmpty() ? QStringLiteral("(standard input)") : options.input;
    file.setFileName(options.input);
    const bool opened = options.input.isEmpty() ? file.open(STDIN_FILENO, QIODevice::ReadOnly,
                                                            QFileDevice::DontCloseHandle)
                                                : file.open(QIODevice::ReadOnly);
    if (!opened) {
        messages.show(ImportMessages::couldNotRead(name, file.errorString()));
        return ExitStatus::failed;
    }
    if (file.isSequential()) {
        // A pipe, named or not, can be read once only: the text is kept aside for the second
        // reading.
        if (!spooled.spool(file)) {
            messages.show(ImportMessages::couldNotRead(name, spooled.errorString()));
            return ExitStatus::failed;
        }
        input = &spooled.device();
    }
    std::unique_ptr<ProgressLine> progress;
    if (input == &file && ProgressLine::wanted(file.handle()))
        progress = std::make_unique<ProgressLine>(name, 2 * (file.size() - file.pos()));
    messages.progress = progress.get();
    OutputBuffer out(STDOUT_FILENO);
    return Converter(options, out, messages, progress.get()).run(*input, name);
}

} // namespace

int main(int argc, char** argv) {
    // A closed standard output shows as a failed write (EPIPE) that ends the run quietly.
    std::signal(SIGPIPE, SIG_IGN);
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    const CommandLine commandLine = parseCommandLine(arguments);
    switch (commandLine.action) {
    case CommandLine::Action::Help:
        print(stdout, helpText());
        return std::fflush(stdout) == 0 ? ExitStatus::done : ExitStatus::failed;
    case CommandLine::Action::Version:
        print(stdout, QStringLiteral("geoquill-convert " GEOQUILL_VERSION "\n"));
        return std::fflush(stdout) == 0 ? ExitStatus::done : ExitStatus::failed;
    case CommandLine::Action::Usage:
        print(stderr, QStringLiteral("geoquill-convert: %1\n").arg(commandLine.error));
        print(stderr, usageText());
        return ExitStatus::usage;
    case CommandLine::Action::Convert:
        break;
    }
    LatLon_UTM::wgs84 = LatLon_UTM::makeWGS84();
    return convert(commandLine.options);
}
