#include "PreferencesWindowFixture.h"

#include <QAccessible>

namespace vantrel {
namespace {

using ::testing::ElementsAreArray;

class PreferencesViewTest : public PreferencesWindowFixture {
protected:
    QList<QQuickItem *> rows() const {
        QList<QQuickItem *> found;
        for (QQuickItem *one : gallery::withDescendants(stage().root())) {
            if (QByteArray(one->metaObject()->className()).startsWith("SidebarRow"))
                found += one;
        }
        return found;
    }

    QString heading() const { return texts().value(0); }
};

TEST_F(PreferencesViewTest, ListsThePagesInTheirOrderAndOpensTheFirst) {
    open(PreferencesTab::calendars);
    QStringList names;
    for (QQuickItem *row : rows()) {
        names += spokenName(*row);
        EXPECT_EQ(QAccessible::queryAccessibleInterface(row)->role(), QAccessible::PageTab);
    }
    const QStringList expected{QStringLiteral("Calendars"), QStringLiteral("General"),
                               QStringLiteral("Takeover"),  QStringLiteral("Event Filters"),
                               QStringLiteral("Menu Bar"),  QStringLiteral("Appearance"),
                               QStringLiteral("About")};
    EXPECT_THAT(names, ElementsAreArray(expected));
    EXPECT_EQ(heading(), u"Calendars");
    EXPECT_TRUE(rows().front()->hasActiveFocus());
}

TEST_F(PreferencesViewTest, OpensEachPageByClick) {
    open(PreferencesTab::calendars);
    for (QQuickItem *row : rows()) {
        click(*row);
        EXPECT_EQ(heading(), spokenName(*row));
        EXPECT_TRUE(QAccessible::queryAccessibleInterface(row)->state().selected);
    }
}

TEST_F(PreferencesViewTest, GoesFromPageToPageByTheArrowKeys) {
    open(PreferencesTab::calendars);
    press(Qt::Key_Up);
    EXPECT_EQ(heading(), u"Calendars");
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(heading(), u"Takeover");
    press(Qt::Key_End);
    EXPECT_EQ(heading(), u"About");
    press(Qt::Key_Home);
    EXPECT_EQ(heading(), u"Calendars");
}

TEST_F(PreferencesViewTest, TurnsThePagesFromAnywhere) {
    open(PreferencesTab::takeover);
    focus(item("leadTime"));
    press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(heading(), u"Event Filters");
    press(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(heading(), u"Takeover");
    shown.model.select(PreferencesTab::about);
    press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(heading(), u"Calendars");
    focus(*rows().front());
    press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_TRUE(rows().at(1)->hasActiveFocus());
}

TEST_F(PreferencesViewTest, TheTabKeyReachesEveryControlOfAPageAndComesBack) {
    open(PreferencesTab::takeover);
    QList<QQuickItem *> reached;
    for (int presses = 0; presses < 4; ++presses) {
        press(Qt::Key_Tab);
        reached += stage().window().activeFocusItem();
    }
    EXPECT_EQ(reached, (QList<QQuickItem *>{&item("leadTime"), &item("snoozeDuration"),
                                            &item("autoClose"), rows().at(2)}));
}

TEST_F(PreferencesViewTest, BringsWhatHasTheKeyboardIntoView) {
    open(PreferencesTab::takeover, {640, 440});
    QQuickItem &last = item("autoClose");
    EXPECT_GT(last.mapToScene({0, last.height()}).y(), 440);
    focus(last);
    EXPECT_LE(last.mapToScene({0, last.height()}).y(), 440);
    focus(item("leadTime"));
    EXPECT_GE(item("leadTime").mapToScene({0, 0}).y(), 0);
}

TEST_F(PreferencesViewTest, EscapeAndItsShortcutCloseTheWindow) {
    open(PreferencesTab::general);
    press(Qt::Key_Escape);
    EXPECT_FALSE(stage().window().isVisible());
    stage().show();
    press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(stage().window().isVisible());
}

TEST_F(PreferencesViewTest, IsMirroredWhereTheLanguageRunsFromTheRight) {
    shown.currentCalendar = LocalCalendar(QTimeZone::utc(), QLocale(QStringLiteral("ar_EG")));
    open(PreferencesTab::takeover);
    EXPECT_GT(rows().front()->mapToScene({0, 0}).x(), 600);
    press(item("leadTime"), Qt::Key_Left);
    EXPECT_EQ(shown.preferences.leadTimeSeconds(), 120);
    click(item("leadTime"), {2, 18});
    EXPECT_EQ(shown.preferences.leadTimeSeconds(), 300);
    press(item("snoozeDuration"), Qt::Key_Left);
    EXPECT_EQ(shown.preferences.snoozeDurationMinutes(), 2);
    press(item("snoozeDuration"), Qt::Key_Right);
    EXPECT_EQ(shown.preferences.snoozeDurationMinutes(), 1);
}

TEST_F(PreferencesViewTest, PutsEveryControlToTheRightWhereReadingBeginsThere) {
    shown.currentCalendar = LocalCalendar(QTimeZone::utc(), QLocale(QStringLiteral("ar_EG")));
    const auto middle = [this](PreferencesTab tab, const char *name) {
        open(tab);
        const QQuickItem &control = item(name);
        return control.mapToScene(control.boundingRect().center()).x();
    };
    const double middleOfThePage = (880 - 200) / 2.0;
    EXPECT_GT(middle(PreferencesTab::general, "joinTarget"), middleOfThePage);
    EXPECT_GT(middle(PreferencesTab::general, "details"), middleOfThePage);
    EXPECT_GT(middle(PreferencesTab::takeover, "snoozeDuration"), middleOfThePage);
    EXPECT_GT(middle(PreferencesTab::about, "askReset"), middleOfThePage);
    EXPECT_GT(middle(PreferencesTab::about, "version"), middleOfThePage);
}

TEST_F(PreferencesViewTest, NothingLeavesTheWindowAtItsLeastSize) {
    for (const PreferencesTab tab : allPreferencesTabs) {
        open(tab, {640, 440});
        for (const QQuickItem *one : gallery::withDescendants(item("page"))) {
            if (!one->inherits("QQuickText") || !one->isVisible())
                continue;
            const QRectF area = one->mapRectToScene(one->boundingRect());
            EXPECT_GE(area.left(), 200) << one->property("text").toString().toStdString();
            EXPECT_LE(area.right(), 640) << one->property("text").toString().toStdString();
        }
    }
}

} // namespace
} // namespace vantrel
