// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Messages.h"
#include "gaze-simulator/Options.h"
#include "gaze-simulator/Stimulus.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QImageWriter>

#include <cstdio>
#include <optional>

namespace {

enum ExitStatus { Done = 0, Failed = 1, WrongUsage = 2 };

void print(std::FILE *stream, const QString &text)
{
    std::fputs(text.toLocal8Bit().constData(), stream);
}

class StandardErrorMessages : public messages::IHandler {
public:
    void show(messages::Severity, const QString &title, const QString &text) override
    {
        print(stderr, QStringLiteral("gaze-simulator: %1: %2\n").arg(title, text));
    }
};

/// The picture that is looked at. Empty if it cannot be read or made, which is reported.
std::optional<QImage> picture(const Options &options)
{
    if (!options.imagePath.isEmpty()) {
        QImageReader reader(options.imagePath);
        const QImage image = reader.read();
        if (!image.isNull())
            return image;
        messages::critical(QStringLiteral("Cannot read"),
                           QStringLiteral("%1: %2. Give the path of a PNG or JPG picture with --image.")
                               .arg(options.imagePath, reader.errorString()));
        return {};
    }
    const QImage image = makeStimulus(options.canvas, options.parameters.seed);
    QImageWriter writer(options.stimulusPath, "png");
    writer.setCompression(100);
    if (writer.write(image))
        return image;
    messages::critical(QStringLiteral("Cannot write"),
                       QStringLiteral("%1: %2. Choose a folder that exists and may be written for --make-stimulus.")
                           .arg(options.stimulusPath, writer.errorString()));
    return {};
}

QString relativePath(const QString &recordingName, const QString &picturePath)
{
    const QDir folder = QFileInfo(recordingName).absoluteDir();
    return folder.relativeFilePath(QFileInfo(picturePath).absoluteFilePath());
}

ExitStatus run(Options options)
{
    SaliencyMap map = plainSaliency(options.canvas);
    const QString picturePath = options.imagePath.isEmpty() ? options.stimulusPath : options.imagePath;
    if (!picturePath.isEmpty()) {
        options.entries.picturePath = relativePath(options.name, picturePath);
        if (const QString fault = setFileFault(options.entries); !options.name.isEmpty() && !fault.isEmpty()) {
            messages::critical(QStringLiteral("Wrong use"), fault);
            return WrongUsage;
        }
        const std::optional<QImage> image = picture(options);
        if (!image)
            return Failed;
        map = imageSaliency(*image);
    }
    if (options.name.isEmpty())
        return Done;
    GazeSimulator simulator(options.parameters, map);
    return recording::write(options.name, setFileText(options.entries), simulator, options.truth) ? Done : Failed;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("gaze-simulator"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VISTRUM_VERSION));
    messages::install(std::make_unique<StandardErrorMessages>());

    const auto parsed = parseOptions(QCoreApplication::arguments());
    if (const auto *help = std::get_if<HelpText>(&parsed)) {
        print(stdout, help->text);
        return Done;
    }
    if (const auto *fault = std::get_if<UsageFault>(&parsed)) {
        messages::critical(QStringLiteral("Wrong use"), fault->text);
        print(stderr, QStringLiteral("See gaze-simulator --help.\n"));
        return WrongUsage;
    }
    return run(std::get<Options>(parsed));
}
