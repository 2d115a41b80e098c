#include "Scenes.h"
#include "Stage.h"

#include <QCommandLineParser>
#include <QDir>
#include <QGuiApplication>
#include <QTextStream>

namespace {

using namespace vantrel::gallery;

int write(const std::vector<Scene> &scenes, const QString &only, const QDir &folder) {
    QTextStream out(stdout);
    if (!folder.mkpath(QStringLiteral("."))) {
        out << "cannot make " << folder.path() << '\n';
        return 1;
    }
    for (const Scene &scene : scenes) {
        if (!scene.name.contains(only))
            continue;
        const double scale = qGuiApp->devicePixelRatio();
        const QString density = scale == 1.0 ? QString() : QStringLiteral("@%1x").arg(scale);
        const QString file = folder.filePath(scene.name + density + QStringLiteral(".png"));
        bool isSaved = false;
        scene.show([&](Stage &stage) { isSaved = stage.picture().save(file); });
        if (!isSaved) {
            out << "cannot write " << file << '\n';
            return 1;
        }
        out << file << '\n';
    }
    return 0;
}

int show(const std::vector<Scene> &scenes, const QString &only) {
    for (const Scene &scene : scenes) {
        if (!scene.name.contains(only))
            continue;
        scene.show([&](Stage &stage) {
            stage.show();
            stage.window().setTitle(scene.name);
            QObject::connect(&stage.window(), &QWindow::visibleChanged,
                             QCoreApplication::instance(), &QCoreApplication::quit);
            QCoreApplication::exec();
        });
    }
    return 0;
}

} // namespace

/// The program's real views on stand-in services, for people to look at: one window after the
/// other (close it to see the next), or all of them as pictures.
int main(int argc, char **argv) {
    Stage::prepare();
    const QGuiApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Shows the views of Vantrel on stand-in services."));
    parser.addHelpOption();
    const QCommandLineOption writeOption(QStringLiteral("write"),
                                         QStringLiteral("Write PNG pictures to <folder>."),
                                         QStringLiteral("folder"));
    const QCommandLineOption onlyOption(QStringLiteral("only"),
                                        QStringLiteral("Only scenes whose name contains <text>."),
                                        QStringLiteral("text"));
    const QCommandLineOption listOption(QStringLiteral("list"),
                                        QStringLiteral("Print the names of the scenes."));
    parser.addOptions({writeOption, onlyOption, listOption});
    parser.process(application);

    auto scenes = takeoverScenes();
    for (const auto &more : {consentScenes(), popoverScenes(), recapScenes()})
        scenes.insert(scenes.end(), more.begin(), more.end());
    const QString only = parser.value(onlyOption);
    if (parser.isSet(listOption)) {
        for (const Scene &scene : scenes)
            QTextStream(stdout) << scene.name << '\n';
        return 0;
    }
    if (parser.isSet(writeOption))
        return write(scenes, only, QDir(parser.value(writeOption)));
    return show(scenes, only);
}
