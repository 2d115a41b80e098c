#include "Scenes.h"
#include "Stage.h"

#include <fakes/ManualMainQueue.h>
#include <fakes/Times.h>
#include <takeover/TakeoverContents.h>

namespace vantrel::gallery {

namespace {

enum class Face { urgent, joined, echo };

struct Meeting {
    QString name;
    QString title;
    QString copyLine;
};

const Meeting standup{QStringLiteral("word"), QStringLiteral("Standup"),
                      QStringLiteral("First one's up.")};

std::vector<Meeting> meetings() {
    const QString sentence = QStringLiteral(
        "Quarterly planning with the whole of product, design, research and the four regional "
        "teams, second half: what we learned from the spring pilots, which of the eleven open "
        "proposals we carry on with, who takes them over, and how we tell everybody who was not "
        "able to come to either of the two halves");
    return {
        {QStringLiteral("two-lines"),
         QStringLiteral("Design review: onboarding, second round with research"),
         QStringLiteral("Straight into the next one.")},
        {QStringLiteral("long"), sentence.leftJustified(300, QLatin1Char('.'), true),
         QStringLiteral("No gap \u2014 Tobble walked you over.")},
        {QStringLiteral("unbroken"), QString(120, QLatin1Char('m')), QString()},
        {QStringLiteral("arabic"),
         QStringLiteral("مراجعة خطة الربع الثالث مع فريق التصميم والبحث في القاعة الكبرى"),
         QStringLiteral("Back to it.")},
        {QStringLiteral("hebrew"), QStringLiteral("פגישת צוות שבועית: תכנון הרבעון"), QString()},
        {QStringLiteral("emoji"), QStringLiteral("🎉 Launch party 🚀 — bring cake 🎂"),
         QStringLiteral("Evening meeting up.")},
        {QStringLiteral("markup"), QStringLiteral("<b>Budget</b> & <img src=x> \u202Egnp.exe"),
         QString()},
        {QStringLiteral("untitled"), QString(), QStringLiteral("Only one on the books.")},
    };
}

Scene scene(Theme theme, QSize size, const Meeting &meeting, Face face) {
    const char *faceName = face == Face::urgent   ? "urgent"
                           : face == Face::joined ? "joined"
                                                  : "echo";
    Scene made;
    made.name = QStringLiteral("takeover-%1-%2-%3x%4-%5")
                    .arg(QLatin1String(faceName), rawValue(theme))
                    .arg(size.width())
                    .arg(size.height())
                    .arg(meeting.name);
    made.show = [=](const std::function<void(Stage &)> &look) {
        fakes::ManualMainQueue queue(fakes::at("2026-03-02T08:59:02"));
        TakeoverPhaseState phase;
        TakeoverContext context;
        context.title = meeting.title;
        context.startsAt = fakes::at("2026-03-02T09:00:00");
        context.endsAt = fakes::at("2026-03-02T09:30:00");
        if (!meeting.copyLine.isEmpty())
            context.copyLine = meeting.copyLine;
        context.primaryAction = TakeoverContext::PrimaryAction::join(
            MeetingLink::phone(QStringLiteral("+41 44 000 00 00")));
        const auto nothing = [] {};
        TakeoverViewModel viewModel(context, phase, queue, {nothing, nothing, nothing});
        if (face == Face::joined)
            phase.phase.set(TakeoverPhase::joined);
        const ViewContent content = face == Face::echo
                                        ? takeoverEchoContent(meeting.title, palette(theme))
                                        : takeoverViewContent(viewModel, palette(theme));
        Stage stage(content, size);
        look(stage);
    };
    return made;
}

} // namespace

std::vector<Scene> takeoverScenes() {
    constexpr QSize usual(1920, 1080);
    std::vector<Scene> scenes;
    for (const Theme theme : allThemes) {
        for (const Face face : {Face::urgent, Face::joined, Face::echo})
            scenes.push_back(scene(theme, usual, standup, face));
    }
    for (const Meeting &meeting : meetings()) {
        scenes.push_back(scene(Theme::hearth, usual, meeting, Face::urgent));
        scenes.push_back(scene(Theme::dusk, {1366, 768}, meeting, Face::urgent));
        scenes.push_back(scene(Theme::summit, {800, 480}, meeting, Face::urgent));
    }
    const Meeting twoLines = meetings().front();
    for (const QSize size : {QSize(800, 480), QSize(1366, 768), QSize(1280, 1024),
                             QSize(5120, 1440), QSize(3840, 2160), QSize(1080, 1920)}) {
        scenes.push_back(scene(Theme::hearth, size, twoLines, Face::urgent));
        scenes.push_back(scene(Theme::alpineDawn, size, standup, Face::joined));
        scenes.push_back(scene(Theme::chestnut, size, twoLines, Face::echo));
    }
    return scenes;
}

} // namespace vantrel::gallery
