#include "Scenes.h"
#include "Stage.h"

#include <app/Wording.h>

#include <QCommandLineParser>
#include <QCursor>
#include <QDir>
#include <QGuiApplication>
#include <QTextStream>

#include <algorithm>

namespace {

using namespace vantrel::gallery;

constexpr QPoint farFromAnyWindow(10000, 10000);

bool isWanted(const Scene &scene, const QStringList &only) {
    return only.isEmpty() || std::any_of(only.begin(), only.end(), [&scene](const QString &text) {
               return scene.name.contains(text);
           });
}

int write(const std::vector<Scene> &scenes, const QStringList &only, const QDir &folder) {
    QTextStream out(stdout);
    QCursor::setPos(farFromAnyWindow); // Which lights what is beneath it.
    if (!folder.mkpath(QStringLiteral("."))) {
        out << "cannot make " << folder.path() << '\n';
        return 1;
    }
    for (const Scene &scene : scenes) {
        if (!isWanted(scene, only))
            continue;
        const double scale = qGuiApp->devicePixelRatio();
        const QString density = scale == 1.0 ? QString() : QStringLiteral("@%1x").arg(scale);
        const QString file = folder.filePath(scene.name + density + QStringLiteral(".png"));
        bool isSaved = false;
        scene.show([&](Stage &stage) { isSaved = stage.picture().save(file, "PNG", 0); });
        if (!isSaved) {
            out << "cannot write " << file << '\n';
            return 1;
        }
        out << file << '\n';
    }
    return 0;
}

int show(const std::vector<Scene> &scenes, const QStringList &only) {
    for (const Scene &scene : scenes) {
        if (!isWanted(scene, only))
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
    QCoreApplication::setApplicationVersion(QStringLiteral(VANTREL_VERSION));
    vantrel::installWording();
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Shows the views of Vantrel on stand-in services."));
    parser.addHelpOption();
    const QCommandLineOption writeOption(QStringLiteral("write"),
                                         QStringLiteral("Write PNG pictures to <folder>."),
                                         QStringLiteral("folder"));
    const QCommandLineOption onlyOption(
        QStringLiteral("only"),
        QStringLiteral("Only scenes whose name contains <text>; may be given again."),
        QStringLiteral("text"));
    const QCommandLineOption listOption(QStringLiteral("list"),
                                        QStringLiteral("Print the names of the scenes."));
    parser.addOptions({writeOption, onlyOption, listOption});
    parser.process(application);

    auto scenes = takeoverScenes();
    for (const auto &more : {consentScenes(), onboardingScenes(), popoverScenes(),
                             preferencesScenes(), recapScenes(), updatesScenes()})
        scenes.insert(scenes.end(), more.begin(), more.end());
    const QStringList only = parser.values(onlyOption);
    if (parser.isSet(listOption)) {
        for (const Scene &scene : scenes)
            QTextStream(stdout) << scene.name << '\n';
        return 0;
    }
    if (parser.isSet(writeOption))
        return write(scenes, only, QDir(parser.value(writeOption)));
    return show(scenes, only);
}
