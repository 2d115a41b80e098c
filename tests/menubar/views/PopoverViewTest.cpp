#include "ShownView.h"

#include <theme/Theme.h>
#include <theme/Typography.h>

namespace vantrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PopoverViewTest : public testing::Test, protected ShownPopoverView {
protected:
    ~PopoverViewTest() override { EXPECT_THAT(stage().warnings(), IsEmpty()); }

    /// The names of the symbols that are seen.
    [[nodiscard]] QStringList symbols() const {
        QStringList names;
        const auto items = gallery::withDescendants(stage().root());
        for (const QQuickItem *one : items) {
            if (one->inherits("vantrel::SymbolItem") && one->isVisible())
                names += one->property("name").toString();
        }
        names.sort();
        return names;
    }

    /// Null while none is shown.
    [[nodiscard]] QQuickItem *hint() {
        const auto items = gallery::withDescendants(*stage().window().contentItem());
        for (QQuickItem *one : items) {
            if (one->objectName() == QLatin1String("hint"))
                return one;
        }
        return nullptr;
    }
};

} // namespace

TEST_F(PopoverViewTest, ListsTheMeetingsByDay) {
    add(QStringLiteral("Standup"), "2026-03-02T09:30:00", call);
    popover.add({QStringLiteral("Dentist"),
                 fakes::at("2026-03-02T14:15:00"),
                 45,
                 {},
                 false,
                 {},
                 QStringLiteral("12 Station Street")});
    add(QStringLiteral("Planning"), "2026-03-03T16:00:00");
    add(QStringLiteral("Review"), "2026-03-05T12:00:00");
    make();
    QStringList seen = texts();
    seen.replaceInStrings(QStringLiteral("\u202f"), QStringLiteral(" "));
    seen.removeAll(QStringLiteral("today"));
    seen.removeAll(QStringLiteral("all"));
    EXPECT_EQ(seen.join(u'|'), QStringLiteral("Vantrel|Today|Standup|9:30 AM – 10:00 AM|%1|"
                                              "Dentist|2:15 PM – 3:00 PM|12 Station Street|"
                                              "Tomorrow|Planning|4:00 PM – 4:30 PM|"
                                              "Thursday|Review|12:00 PM – 12:30 PM")
                                   .arg(call));
    EXPECT_FALSE(seen.contains(QStringLiteral("paused")));
}

TEST_F(PopoverViewTest, TellsTheTimeByTheUsersClock) {
    popover.calendar = LocalCalendar(QTimeZone("UTC"), QLocale(QLocale::German));
    add(QStringLiteral("Standup"), "2026-03-02T21:30:00");
    make();
    EXPECT_TRUE(texts().contains(QStringLiteral("21:30 – 22:00")));
}

TEST_F(PopoverViewTest, TakesOverAnotherClockAtTheNextMinute) {
    add(QStringLiteral("Standup"), "2026-03-02T21:30:00");
    make();
    EXPECT_FALSE(texts().contains(QStringLiteral("21:30 – 22:00")));
    popover.calendar = LocalCalendar(popover.calendar.timeZone(), popover.calendar.locale(),
                                     ClockFormat::twentyFourHours);
    popover.queue.advance(Seconds{60.0});
    EXPECT_TRUE(
        stage().waitFor([this] { return texts().contains(QStringLiteral("21:30 – 22:00")); }));
}

TEST_F(PopoverViewTest, MarksWhatRepeatsAndOffersToJoinVideoCallsAlone) {
    popover.add(
        {QStringLiteral("Repeats"), fakes::at("2026-03-02T10:00:00"), 30, {}, true, {}, {}});
    add(QStringLiteral("Call"), "2026-03-02T11:00:00", call);
    add(QStringLiteral("Phone"), "2026-03-02T12:00:00", QStringLiteral("Tel: +41 44 668 18 00"));
    make();
    const auto rows = all("EventRow");
    ASSERT_EQ(rows.size(), 3);
    for (const QQuickItem *row : rows) {
        const QString title = row->property("title").toString();
        QList<QQuickItem *> parts = gallery::withDescendants(*const_cast<QQuickItem *>(row));
        const auto isSeen = [&parts](const char *name) {
            return std::any_of(parts.begin(), parts.end(), [name](const QQuickItem *part) {
                return part->objectName() == QLatin1String(name) && part->isVisible();
            });
        };
        EXPECT_EQ(isSeen("repeats"), title == QStringLiteral("Repeats")) << qPrintable(title);
        EXPECT_EQ(isSeen("join"), title == QStringLiteral("Call")) << qPrintable(title);
        EXPECT_EQ(isSeen("eventDetail"), title != QStringLiteral("Repeats")) << qPrintable(title);
    }
    EXPECT_TRUE(texts().contains(QStringLiteral("+41 44 668 18 00")));
}

TEST_F(PopoverViewTest, JoinsTheMeetingOfTheButton) {
    add(QStringLiteral("First"), "2026-03-02T10:00:00", call);
    add(QStringLiteral("Second"), "2026-03-02T11:00:00", call);
    make();
    const auto buttons = all("JoinButton");
    ASSERT_EQ(buttons.size(), 2);
    for (const QQuickItem *button : buttons) {
        if (button->property("meeting") == QStringLiteral("Second"))
            click(*button);
    }
    ASSERT_EQ(popover.joined.size(), 1u);
    EXPECT_EQ(popover.joined[0].title, QStringLiteral("Second"));
}

TEST_F(PopoverViewTest, SwitchesTheMode) {
    add(QStringLiteral("Standup"), "2026-03-02T10:00:00");
    add(QStringLiteral("Planning"), "2026-03-03T10:00:00");
    make(EventListMode::today);
    EXPECT_FALSE(texts().contains(QStringLiteral("Planning")));
    click("all");
    EXPECT_EQ(popover.viewModel.mode(), EventListMode::all);
    EXPECT_TRUE(stage().waitFor([&] { return texts().contains(QStringLiteral("Planning")); }));
    click("today");
    EXPECT_EQ(popover.viewModel.mode(), EventListMode::today);
    EXPECT_TRUE(item("today").property("isChosen").toBool());
    EXPECT_FALSE(item("all").property("isChosen").toBool());
}

TEST_F(PopoverViewTest, PausesAndResumes) {
    make();
    EXPECT_EQ(item("pause").property("title"), QStringLiteral("Pause alerts"));
    EXPECT_EQ(item("pause").property("symbol"), QStringLiteral("pause.fill"));
    click("pause");
    EXPECT_TRUE(popover.preferences.isPaused());
    EXPECT_EQ(item("pause").property("title"), QStringLiteral("Resume alerts"));
    EXPECT_EQ(item("pause").property("symbol"), QStringLiteral("play.fill"));
    EXPECT_TRUE(texts().contains(QStringLiteral("paused")));
    click("pause");
    EXPECT_FALSE(popover.preferences.isPaused());
    EXPECT_FALSE(texts().contains(QStringLiteral("paused")));
}

TEST_F(PopoverViewTest, OpensTheMenuWhereItWasClicked) {
    make();
    const QQuickItem &gear = item("more");
    const QPoint place = gear.mapToScene({10.0, 20.0}).toPoint();
    QTest::mouseClick(&stage().window(), Qt::LeftButton, Qt::NoModifier, place);
    EXPECT_THAT(popover.menus, ElementsAre(stage().window().mapToGlobal(place)));
}

TEST_F(PopoverViewTest, ShowsALineWhereThereIsNothingToList) {
    make(EventListMode::today);
    EXPECT_EQ(item("emptyLine").property("text"), QStringLiteral("all clear today"));
    EXPECT_FALSE(item("events").isVisible());
    click("all");
    EXPECT_EQ(item("emptyLine").property("text"), QStringLiteral("calendar's quiet"));
    EXPECT_EQ(stage().root().implicitHeight(), 220.0);
    EXPECT_EQ(stage().root().implicitWidth(), 360.0);
    add(QStringLiteral("Standup"), "2026-03-02T10:00:00");
    popover.viewModel.refresh();
    EXPECT_FALSE(item("emptyLine").isVisible());
    EXPECT_TRUE(item("events").isVisible());
}

TEST_F(PopoverViewTest, IsAsHighAsItsListWithinBounds) {
    add(QStringLiteral("Standup"), "2026-03-02T10:00:00");
    make();
    EXPECT_EQ(stage().root().implicitHeight(), 220.0);
    for (int hour = 11; hour < 14; ++hour)
        add(QStringLiteral("Meeting"), qPrintable(QStringLiteral("2026-03-02T%1:00:00").arg(hour)));
    make();
    const double height = stage().root().implicitHeight();
    EXPECT_GT(height, 220.0);
    EXPECT_LT(height, 560.0);
    QRectF last;
    for (const QQuickItem *row : all("EventRow"))
        last = last.united(area(*row));
    EXPECT_LE(last.bottom(), height);
    EXPECT_GE(last.bottom(), height - 16.0);
    for (int hour = 14; hour < 23; ++hour)
        add(QStringLiteral("Meeting"), qPrintable(QStringLiteral("2026-03-02T%1:00:00").arg(hour)));
    make();
    EXPECT_EQ(stage().root().implicitHeight(), 560.0);
}

TEST_F(PopoverViewTest, ScrollsToTheLastRowOnAScreenThatIsTooLow) {
    for (int hour = 10; hour < 23; ++hour)
        add(QString::number(hour), qPrintable(QStringLiteral("2026-03-02T%1:00:00").arg(hour)));
    make();
    stage().window().resize(360, 300);
    stage().root().setSize({360, 300});
    item("events").forceActiveFocus();
    press(Qt::Key_End);
    EXPECT_TRUE(stage().waitFor([&] {
        const auto rows = all("EventRow");
        return std::any_of(rows.begin(), rows.end(), [this](const QQuickItem *row) {
            return row->property("title") == QStringLiteral("22") && area(*row).bottom() <= 300.0 &&
                   area(*row).top() > 0.0;
        });
    }));
}

TEST_F(PopoverViewTest, MakesRowsForWhatIsSeenAlone) {
    for (int number = 0; number < 2000; ++number)
        popover.add({QStringLiteral("Meeting %1").arg(number),
                     fakes::at("2026-03-02T09:10:00") + Seconds{600.0 * number},
                     10,
                     {},
                     false,
                     call,
                     {}});
    make();
    EXPECT_EQ(popover.model.rows()->rowCount(), 2000);
    EXPECT_GT(all("EventRow").size(), 5);
    EXPECT_LT(all("EventRow").size(), 40);
    item("events").forceActiveFocus();
    press(Qt::Key_End);
    EXPECT_TRUE(stage().waitFor([&] { return texts().contains(QStringLiteral("Meeting 1999")); }));
    EXPECT_LT(all("EventRow").size(), 60);
}

TEST_F(PopoverViewTest, KeepsTheDayAtTheTopWhileItsMeetingsPass) {
    for (int number = 0; number < 30; ++number)
        popover.add({QStringLiteral("Meeting %1").arg(number),
                     fakes::at("2026-03-02T09:30:00") + Seconds{1200.0 * number},
                     10,
                     {},
                     false,
                     {},
                     {}});
    make();
    item("events").setProperty("contentY", 700.0);
    EXPECT_TRUE(stage().waitFor([&] {
        const auto headers = all("DayHeader");
        return std::any_of(headers.begin(), headers.end(), [this](const QQuickItem *header) {
            return header->isVisible() && std::abs(area(*header).top() - 49.0) < 1.0;
        });
    }));
}

TEST_F(PopoverViewTest, KeepsItsPlaceAsTheFirstMeetingBegins) {
    for (int number = 0; number < 30; ++number)
        popover.add({QStringLiteral("Meeting %1").arg(number),
                     fakes::at("2026-03-02T09:00:30") + Seconds{1200.0 * number},
                     10,
                     {},
                     false,
                     {},
                     {}});
    make();
    const auto before = all("EventRow");
    popover.queue.advance(Seconds{60.0});
    EXPECT_EQ(popover.model.rows()->rowCount(), 29);
    EXPECT_TRUE(stage().waitFor([&] { return !texts().contains(QStringLiteral("Meeting 0")); }));
    const auto after = all("EventRow");
    int kept = 0;
    for (QQuickItem *row : before)
        kept += after.contains(row);
    EXPECT_GE(kept, before.size() - 1); // The others are the same items, not made anew.
}

TEST_F(PopoverViewTest, ShowsMarkupAsItIs) {
    const QString title = QStringLiteral("<b>Budget</b> <img src=\"http://127.0.0.1:9/x.png\">");
    popover.add(
        {title, fakes::at("2026-03-02T10:00:00"), 30, {}, true, {}, QStringLiteral("<i>here</i>")});
    make();
    EXPECT_TRUE(texts().contains(title));
    EXPECT_TRUE(texts().contains(QStringLiteral("<i>here</i>")));
    int count = 0;
    const auto items = gallery::withDescendants(stage().root());
    for (const QQuickItem *one : items) {
        if (!one->inherits("QQuickText"))
            continue;
        ++count;
        EXPECT_EQ(one->property("textFormat").toInt(), static_cast<int>(Qt::PlainText));
    }
    EXPECT_GT(count, 6);
}

TEST_F(PopoverViewTest, TellsTheWholeOfATextThatIsCut) {
    const QString title = QStringLiteral("word ").repeated(60).trimmed();
    add(title, "2026-03-02T10:00:00", call);
    make();
    const QQuickItem &label = item("eventTitle");
    ASSERT_TRUE(label.property("truncated").toBool());
    hover(label);
    ASSERT_TRUE(stage().waitFor([&] { return hint() && hint()->opacity() == 1.0; }));
    EXPECT_TRUE(stage().root().boundingRect().contains(area(*hint())));
    hover(item("more"));
    ASSERT_TRUE(stage().waitFor([&] { return hint() && hint()->opacity() == 1.0; }));
    QTest::mouseMove(&stage().window(), {5, 5});
    EXPECT_TRUE(stage().waitFor([&] { return !hint(); }));
}

TEST_F(PopoverViewTest, TellsWhatAButtonIsAndItsKey) {
    make();
    const auto told = [this](const char *button) {
        hover(item(button));
        QString text;
        stage().waitFor([&] {
            text = hint() ? hint()->property("text").toString() : QString();
            return text.contains(u'(') && hint()->opacity() == 1.0;
        });
        QTest::mouseMove(&stage().window(), {5, 5});
        EXPECT_TRUE(stage().waitFor([this] { return !hint(); }));
        return text;
    };
    EXPECT_EQ(told("more"), QStringLiteral("More (Alt+M)"));
    EXPECT_EQ(told("pause"), QStringLiteral("Pause alerts (Alt+P)"));
    EXPECT_EQ(told("today"), QStringLiteral("today (Alt+T)"));
    EXPECT_EQ(told("all"), QStringLiteral("all (Alt+A)"));
}

TEST_F(PopoverViewTest, HasASymbolForEachThing) {
    popover.add({QStringLiteral("Call"), fakes::at("2026-03-02T10:00:00"), 30, {}, true, call, {}});
    make(EventListMode::today);
    EXPECT_EQ(symbols().join(u' '), QStringLiteral("arrow.triangle.2.circlepath gearshape.fill "
                                                   "pause.fill pawprint.fill video.fill"));
    popover.store.storedEvents.clear();
    make(EventListMode::today);
    EXPECT_EQ(symbols().join(u' '),
              QStringLiteral("gearshape.fill moon.zzz pause.fill pawprint.fill"));
}

TEST_F(PopoverViewTest, DrawsTheCalendarsColourBesideTheMeeting) {
    popover.add({QStringLiteral("Green"), fakes::at("2026-03-02T10:00:00"), 30, {0.0, 0.6, 0.2}});
    make();
    const QPointF middle = area(item("calendarBar")).center();
    const QImage picture = stage().picture();
    EXPECT_EQ(QColor(picture.pixel((middle * picture.devicePixelRatio()).toPoint())),
              QColor(0, 153, 51));
}

TEST_F(PopoverViewTest, TellsTheDaySmallRoundedAndSemibold) {
    add(QStringLiteral("Standup"), "2026-03-02T10:00:00");
    make();
    const auto font = item("dayLabel").property("font").value<QFont>();
    EXPECT_EQ(font.weight(), QFont::DemiBold);
    EXPECT_EQ(font.pixelSize(), qRound(Typography::size(-1)));
    EXPECT_EQ(font.families(),
              Typography::rounded(Typography::size(-1), QFont::DemiBold).families());
    EXPECT_LT(font.pixelSize(), item("eventTitle").property("font").value<QFont>().pixelSize());
}

TEST_F(PopoverViewTest, KeepsEverythingWithinItsWidth) {
    popover.preferences.setIsPaused(true);
    popover.add({QString(300, u'm'),
                 fakes::at("2026-03-02T10:00:00"),
                 30,
                 {},
                 true,
                 QStringLiteral("https://zoom.us/j/1?") + QString(300, u'x'),
                 {}});
    make();
    const auto items = gallery::withDescendants(stage().root());
    for (const QQuickItem *one : items) {
        if (one->isVisible() && one->inherits("QQuickText")) {
            EXPECT_GE(area(*one).left(), 0.0);
            EXPECT_LE(area(*one).right(), 360.0) << qPrintable(one->property("text").toString());
        }
    }
    // Nothing in the top line lies on its neighbour.
    EXPECT_LE(area(item("title")).right(), area(item("pausedPill")).left());
    EXPECT_LT(area(item("pausedPill")).right(), area(item("today")).left());
    EXPECT_LE(area(item("all")).right(), area(item("pause")).left());
    EXPECT_FALSE(item("title").property("truncated").toBool());
}

TEST_F(PopoverViewTest, IsMirroredWhereReadingGoesToTheLeft) {
    popover.calendar = LocalCalendar(QTimeZone("UTC"), QLocale(QLocale::Arabic));
    add(QStringLiteral("اجتماع"), "2026-03-02T10:00:00", call);
    make();
    EXPECT_LT(area(item("more")).right(), area(item("all")).left());
    EXPECT_LT(area(item("all")).left(), area(item("today")).left());
    EXPECT_LT(area(item("today")).right(), area(item("title")).left());
    EXPECT_LT(area(item("join")).right(), area(item("eventTitle")).left());
    EXPECT_GT(area(item("eventTime")).right(), 300.0);
}

TEST_F(PopoverViewTest, FollowsTheTheme) {
    make();
    const QRgb before = stage().picture().pixel(180, 200);
    popover.preferences.setSelectedTheme(Theme::dusk);
    EXPECT_TRUE(stage().waitFor([&] { return stage().picture().pixel(180, 200) != before; }));
}

TEST_F(PopoverViewTest, HasTheCornersThatItIsTold) {
    make();
    EXPECT_EQ(stage().root().property("cornerRadius").toInt(), 16);
    const QRgb ground = QColor(Qt::white).rgb();
    EXPECT_EQ(stage().picture().pixel(0, 0), ground);
    stage().root().setProperty("cornerRadius", 0);
    EXPECT_TRUE(stage().waitFor([&] { return stage().picture().pixel(0, 0) != ground; }));
}

TEST_F(PopoverViewTest, NamesEveryPartForScreenReaders) {
    add(QStringLiteral("Standup"), "2026-03-02T10:00:00", call);
    popover.preferences.setIsPaused(true);
    make(EventListMode::today);
    QList<Spoken> found = spoken();
    for (Spoken &one : found)
        one.name.replace(QStringLiteral("\u202f"), QStringLiteral(" "));
    EXPECT_THAT(found, testing::UnorderedElementsAre(
                           Spoken{QAccessible::List, QStringLiteral("Upcoming meetings")},
                           Spoken{QAccessible::Heading, QStringLiteral("Today")},
                           Spoken{QAccessible::ListItem,
                                  QStringLiteral("Standup, 10:00 AM – 10:30 AM, ") + call},
                           Spoken{QAccessible::Button, QStringLiteral("Join Standup")},
                           Spoken{QAccessible::Heading, QStringLiteral("Vantrel")},
                           Spoken{QAccessible::StaticText, QStringLiteral("paused")},
                           Spoken{QAccessible::Grouping, QStringLiteral("Meetings")},
                           Spoken{QAccessible::RadioButton, QStringLiteral("today")},
                           Spoken{QAccessible::RadioButton, QStringLiteral("all")},
                           Spoken{QAccessible::Button, QStringLiteral("Resume alerts")},
                           Spoken{QAccessible::ButtonMenu, QStringLiteral("More")}));
    QAccessibleInterface *view = QAccessible::queryAccessibleInterface(&stage().root());
    EXPECT_EQ(view->role(), QAccessible::Dialog);
    EXPECT_EQ(view->text(QAccessible::Name), QStringLiteral("Vantrel"));
}

TEST_F(PopoverViewTest, AnswersTheScreenReadersPress) {
    add(QStringLiteral("Standup"), "2026-03-02T10:00:00", call);
    make(EventListMode::today);
    for (const char *button : {"pause", "more", "all", "join"}) {
        QAccessibleInterface *seen = QAccessible::queryAccessibleInterface(&item(button));
        ASSERT_TRUE(seen && seen->actionInterface()) << button;
        seen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    }
    EXPECT_TRUE(popover.preferences.isPaused());
    EXPECT_EQ(popover.menus.size(), 1u);
    EXPECT_EQ(popover.viewModel.mode(), EventListMode::all);
    EXPECT_EQ(popover.joined.size(), 1u);
}

} // namespace vantrel
