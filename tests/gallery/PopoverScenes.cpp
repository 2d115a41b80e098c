#include "Scenes.h"
#include "ShownPopover.h"
#include "Stage.h"

#include <fakes/Times.h>
#include <menubar/MenuModel.h>
#include <menubar/PopoverContents.h>
#include <menubar/UpcomingMenuTarget.h>

#include <QLocale>

namespace vantrel::gallery {

namespace {

using fakes::at;

enum class Fill { empty, few, full, strange };

QString nameOf(Fill fill) {
    switch (fill) {
    case Fill::empty:
        return QStringLiteral("empty");
    case Fill::few:
        return QStringLiteral("few");
    case Fill::full:
        return QStringLiteral("full");
    case Fill::strange:
        return QStringLiteral("strange");
    }
    Q_UNREACHABLE();
}

const Color moss{0.42, 0.56, 0.35};
const Color blue{0.23, 0.47, 0.85};
const Color rose{0.83, 0.36, 0.42};
const Color plum{0.55, 0.38, 0.72};
const QString call = QStringLiteral("https://zoom.us/j/98765432100?pwd=c2VjcmV0LXdvcmQ");
const QString meet = QStringLiteral("https://meet.google.com/abc-defg-hij");

struct Words {
    QString standup, design, dentist, lunch, planning, review, interview, demo, retro, room, street;
};

Words wordsOf(QLocale::Language language) {
    if (language == QLocale::German)
        return {QStringLiteral("Morgenrunde"),
                QStringLiteral("Gestaltung: zweite Runde mit der Forschung und dem Kundendienst"),
                QStringLiteral("Zahnarzt"),
                QStringLiteral("Mittagessen mit Jonas"),
                QStringLiteral("Quartalsplanung"),
                QStringLiteral("Durchsicht des Vertrags"),
                QStringLiteral("Gespräch mit Mara Lindqvist"),
                QStringLiteral("Vorführung für den Vertrieb"),
                QStringLiteral("Rückblick"),
                QStringLiteral("Zimmer Matterhorn, 3. Stock"),
                QStringLiteral("Bahnhofstrasse 12, 8001 Zürich")};
    if (language == QLocale::Arabic)
        return {QStringLiteral("اجتماع الصباح"),
                QStringLiteral("مراجعة التصميم: الجولة الثانية مع فريق البحث وخدمة العملاء"),
                QStringLiteral("طبيب الأسنان"),
                QStringLiteral("غداء مع يونس"),
                QStringLiteral("تخطيط الربع الثالث"),
                QStringLiteral("مراجعة العقد"),
                QStringLiteral("مقابلة مع ليلى"),
                QStringLiteral("عرض لفريق المبيعات"),
                QStringLiteral("نظرة إلى الوراء"),
                QStringLiteral("القاعة الكبرى، الطابق الثالث"),
                QStringLiteral("شارع الجامعة ١٢")};
    return {QStringLiteral("Standup"),
            QStringLiteral("Design review: onboarding, second round with research and support"),
            QStringLiteral("Dentist"),
            QStringLiteral("Lunch with Jonas"),
            QStringLiteral("Quarterly planning"),
            QStringLiteral("Contract walk-through"),
            QStringLiteral("Interview with Mara Lindqvist"),
            QStringLiteral("Demo for the sales team"),
            QStringLiteral("Retrospective"),
            QStringLiteral("Room Matterhorn, 3rd floor"),
            QStringLiteral("12 Station Street")};
}

void fill(ShownPopover &popover, Fill how, const Words &words) {
    using Meeting = ShownPopover::Meeting;
    if (how == Fill::empty)
        return;
    if (how == Fill::strange) {
        popover.add({QStringLiteral("<b>Budget</b> & <img src=x> \u202Egnp.exe"),
                     at("2026-03-02T09:30:00"),
                     30,
                     rose,
                     true,
                     call,
                     {}});
        popover.add({QString(200, u'm'),
                     at("2026-03-02T10:00:00"),
                     30,
                     blue,
                     false,
                     QStringLiteral("https://video.example.com/") + QString(300, u'x'),
                     {}});
        popover.add({QStringLiteral("🎉 Launch party 🚀 — bring cake 🎂 and everything else that you "
                                    "would like to see on the table this time"),
                     at("2026-03-02T11:00:00"),
                     600,
                     plum,
                     true,
                     {},
                     QString(200, u'W')});
        popover.add({QStringLiteral("first line\nsecond line"),
                     at("2026-03-02T12:00:00"),
                     15,
                     moss,
                     false,
                     {},
                     QStringLiteral("a\nb")});
        popover.add({QString(), at("2026-03-02T13:00:00"), 0, moss, false, {}, {}});
        return;
    }
    popover.add(Meeting{words.standup, at("2026-03-02T09:30:00"), 15, blue, true, meet, {}});
    popover.add(Meeting{words.design, at("2026-03-02T11:00:00"), 60, moss, false, call, {}});
    popover.add(
        Meeting{words.dentist, at("2026-03-02T14:15:00"), 45, rose, false, {}, words.street});
    if (how == Fill::few)
        return;
    popover.add(
        Meeting{words.planning, at("2026-03-03T09:00:00"), 90, blue, false, {}, words.room});
    popover.add(Meeting{words.lunch, at("2026-03-03T12:00:00"), 60, plum, false, {}, {}});
    popover.add(Meeting{words.review, at("2026-03-04T10:00:00"), 30, blue, false, call, {}});
    popover.add(Meeting{words.interview, at("2026-03-05T15:00:00"), 45, moss, false, meet, {}});
    popover.add(Meeting{words.demo, at("2026-03-06T13:30:00"), 30, plum, true, call, {}});
    popover.add(Meeting{words.retro, at("2026-03-12T16:00:00"), 60, blue, true, meet, words.room});
}

enum class Alerts { on, paused };

QSize wantedSize(const ViewContent &content) {
    Stage measure(content, {360, 560});
    return QSizeF(measure.root().implicitWidth(), measure.root().implicitHeight()).toSize();
}

Scene popover(Theme theme, QLocale::Language language, Fill how, Alerts alerts = Alerts::on) {
    Scene made;
    made.name = QStringLiteral("popover-%1-%2-%3")
                    .arg(rawValue(theme), QLocale(language).name().left(2),
                         alerts == Alerts::paused ? QStringLiteral("paused") : nameOf(how));
    made.show = [=](const std::function<void(Stage &)> &look) {
        ShownPopover shown{QLocale(language)};
        shown.preferences.setSelectedTheme(theme);
        shown.preferences.setIsPaused(alerts == Alerts::paused);
        fill(shown, how, wordsOf(language));
        shown.viewModel.setMode(how == Fill::few ? EventListMode::today : EventListMode::all);
        shown.viewModel.popoverDidShow();
        ViewContent content = upcomingEventsContent(shown.model);
        content.properties.insert(QStringLiteral("reducedMotion"), true);
        Stage stage(content, wantedSize(content), Stage::Ground::seenThrough);
        look(stage);
    };
    return made;
}

Scene menu(Theme theme, Qt::LayoutDirection direction) {
    Scene made;
    made.name = QStringLiteral("menu-%1-%2")
                    .arg(rawValue(theme), direction == Qt::LeftToRight ? QStringLiteral("ltr")
                                                                       : QStringLiteral("rtl"));
    made.show = [=](const std::function<void(Stage &)> &look) {
        UpcomingMenuTarget target;
        target.openRecapHandler = target.quitHandler = target.previewTakeoverHandler = [] {};
        MenuModel model([](const std::function<void()> &) {});
        model.show(target.menu(), {ThemePalette(palette(theme)), direction});
        const ViewContent content = menuContent(model);
        Stage stage(content, wantedSize(content), Stage::Ground::seenThrough);
        stage.root().setProperty("current", 0);
        look(stage);
    };
    return made;
}

} // namespace

std::vector<Scene> popoverScenes() {
    std::vector<Scene> scenes;
    for (const Theme theme : allThemes) {
        for (const auto language : {QLocale::English, QLocale::German, QLocale::Arabic}) {
            for (const Fill how : {Fill::empty, Fill::few, Fill::full})
                scenes.push_back(popover(theme, language, how));
        }
        scenes.push_back(popover(theme, QLocale::English, Fill::full, Alerts::paused));
        scenes.push_back(menu(theme, Qt::LeftToRight));
    }
    for (const Theme theme : {Theme::hearth, Theme::dusk})
        scenes.push_back(popover(theme, QLocale::English, Fill::strange));
    scenes.push_back(menu(Theme::hearth, Qt::RightToLeft));
    return scenes;
}

} // namespace vantrel::gallery
