#include "PreferencesWindowFixture.h"

namespace vantrel {
namespace {

using ::testing::IsEmpty;

class AppearanceTabTest : public PreferencesWindowFixture {
protected:
    void SetUp() override { open(PreferencesTab::appearance); }

    QList<QQuickItem *> cards() const {
        QList<QQuickItem *> found;
        for (QQuickItem *one : gallery::withDescendants(item("page"))) {
            if (QByteArray(one->metaObject()->className()).startsWith("ThemeCard"))
                found += one;
        }
        return found;
    }

    QString checked() const {
        QStringList names;
        for (QQuickItem *card : cards()) {
            if (isSpokenAsChecked(*card))
                names += spokenName(*card);
        }
        return names.join(u',');
    }
};

TEST_F(AppearanceTabTest, OffersTheThemesInTheirOrder) {
    const QStringList read = texts();
    qsizetype place = -1;
    for (const Theme theme : allThemes) {
        EXPECT_GT(read.indexOf(name(theme)), place);
        place = read.indexOf(name(theme));
        EXPECT_EQ(read.value(place + 1), description(theme));
    }
    EXPECT_TRUE(isRead(QStringLiteral("Pick how Tobble looks. The voice stays the same.")));
    EXPECT_TRUE(isRead(QStringLiteral("Show Demo Alert")));
    EXPECT_TRUE(isRead(QStringLiteral("Standup")));
    EXPECT_TRUE(isRead(QStringLiteral("starts in 0:58")));
    EXPECT_TRUE(isRead(QStringLiteral("Join")));
    EXPECT_EQ(checked(), u"Hearth");
}

TEST_F(AppearanceTabTest, PicksAThemeByClickAndTakesItsColoursAtOnce) {
    click(*cards().at(3));
    EXPECT_EQ(shown.preferences.selectedTheme(), Theme::dusk);
    EXPECT_EQ(stored("selectedTheme"), QStringLiteral("dusk"));
    EXPECT_EQ(checked(), u"Dusk");
    EXPECT_EQ(stage().picture().pixelColor(870, 590),
              ThemePalette(palette(Theme::dusk)).surfaceBackground());
}

TEST_F(AppearanceTabTest, PicksAThemeByTheArrowKeys) {
    focus(*cards().at(0));
    press(Qt::Key_Right);
    EXPECT_EQ(stored("selectedTheme"), QStringLiteral("summit"));
    press(Qt::Key_Down);
    EXPECT_EQ(stored("selectedTheme"), QStringLiteral("dusk"));
    press(Qt::Key_Down);
    EXPECT_EQ(stored("selectedTheme"), QStringLiteral("dusk")) << "there is none further down";
    press(Qt::Key_Right);
    EXPECT_EQ(stored("selectedTheme"), QStringLiteral("chestnut"));
    press(Qt::Key_Left);
    press(Qt::Key_Up);
    EXPECT_EQ(stored("selectedTheme"), QStringLiteral("summit"));
}

TEST_F(AppearanceTabTest, LeavesTheThemeAloneOnTheArrowKeysOfTheDemo) {
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down}) {
        press(item("showDemoAlert"), key);
        EXPECT_EQ(shown.preferences.selectedTheme(), Theme::hearth);
        EXPECT_TRUE(item("showDemoAlert").hasActiveFocus());
    }
}

TEST_F(AppearanceTabTest, GoesTheOtherWayWhereTheLanguageRunsFromTheRight) {
    shown.currentCalendar = LocalCalendar(QTimeZone::utc(), QLocale(QStringLiteral("ar_EG")));
    open(PreferencesTab::appearance);
    focus(*cards().at(0));
    press(Qt::Key_Left);
    EXPECT_EQ(shown.preferences.selectedTheme(), Theme::summit);
    press(Qt::Key_Right);
    EXPECT_EQ(shown.preferences.selectedTheme(), Theme::hearth);
}

TEST_F(AppearanceTabTest, ShowsTheDemoInTheSelectedTheme) {
    EXPECT_THAT(shown.previews, IsEmpty());
    click(item("showDemoAlert"));
    press(item("showDemoAlert"), Qt::Key_Return);
    ASSERT_EQ(shown.previews.size(), 2U);
    EXPECT_EQ(shown.previews.at(0), std::nullopt);
}

TEST_F(AppearanceTabTest, ShowsWhatIsChangedElsewhere) {
    shown.preferences.setSelectedTheme(Theme::chestnut);
    EXPECT_EQ(checked(), u"Chestnut");
}

} // namespace
} // namespace vantrel
