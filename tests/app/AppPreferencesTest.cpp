#include "CoordinatorFixture.h"

#include <menubar/MenuModel.h>
#include <menubar/PopoverModel.h>
#include <preferences/CalendarOffer.h>
#include <preferences/PreferencesModel.h>

#include <gtest/gtest.h>

#include <stdexcept>

namespace vantrel {
namespace {

class AppPreferencesTest : public CoordinatorFixture {
protected:
    void click(PointerButton button) {
        statusBar.items.at(0)->listener.clicked({button, false, QRect(100, 0, 24, 24)});
    }

    template <typename Model>
    static Model &modelOf(const ViewContent &content) {
        const auto found =
            content.properties.value(QStringLiteral("viewModel")).template value<QObject *>();
        return *qobject_cast<Model *>(found);
    }

    /// What shows the popup of that view, which must be up.
    template <typename Model>
    Model &shown(const char *view) const {
        for (const auto &popup : popups.shown()) {
            if (popup->content.typeName == QLatin1String(view))
                return modelOf<Model>(popup->content);
        }
        throw std::logic_error("it is not shown");
    }

    PreferencesModel &opened() {
        coordinator->openPreferences();
        return modelOf<PreferencesModel>(windows.windows.at(0)->content);
    }

    QStringList listedCalendars() {
        QStringList titles;
        for (const QVariant &account : opened().calendars()->accounts()) {
            for (const QVariant &calendar : account.value<CalendarAccount>().calendars)
                titles += calendar.value<CalendarOffer>().title;
        }
        return titles;
    }
};

TEST_F(AppPreferencesTest, ComeFromEitherMenuAndFromOutsideInOneWindow) {
    start();
    click(PointerButton::left);
    shown<PopoverModel>("UpcomingEventsView").openMenu({300.0, 40.0});
    shown<MenuModel>("MenuView").choose(1);
    queue.runDue();
    EXPECT_TRUE(popups.shown().empty());
    click(PointerButton::right);
    shown<MenuModel>("MenuView").choose(0);
    queue.runDue();
    coordinator->takeRequest(ActivationRequest::showPreferences);
    ASSERT_EQ(windows.windows.size(), 1U);
    EXPECT_EQ(windows.windows.front()->description.title, u"Vantrel");
    EXPECT_EQ(windows.windows.front()->showings, 3);
}

TEST_F(AppPreferencesTest, FollowTheCalendarsThatThereAre) {
    start();
    EXPECT_EQ(listedCalendars(), (QStringList{QStringLiteral("birthdays"),
                                              QStringLiteral("holidays"), QStringLiteral("work")}));
    EXPECT_EQ(opened().calendars()->selected(), QStringList{QStringLiteral("work")});
    remove("work");
    announceChange();
    EXPECT_EQ(listedCalendars(),
              (QStringList{QStringLiteral("birthdays"), QStringLiteral("holidays")}));
    EXPECT_EQ(opened().calendars()->selected(), QStringList());
}

TEST_F(AppPreferencesTest, HaveTheUserAskedForAccess) {
    store.authorization = StoreAuthorization::denied;
    start();
    EXPECT_EQ(opened().calendars()->access(), CalendarsTabModel::Missing);
    opened().calendars()->grantAccess();
    ASSERT_EQ(store.accessRequests.size(), 1U);
    store.authorization = StoreAuthorization::fullAccess;
    store.accessRequests.front()(true, std::nullopt);
    EXPECT_EQ(opened().calendars()->access(), CalendarsTabModel::Granted);
    EXPECT_EQ(listedCalendars().size(), 3);
}

TEST_F(AppPreferencesTest, ShowADemoInTheSelectedTheme) {
    start();
    opened().appearance()->select(3);
    opened().appearance()->showDemoAlert();
    EXPECT_EQ(panels.shown().size(), 1U);
}

TEST_F(AppPreferencesTest, SetWhetherTheProgramStartsAtLogin) {
    start();
    opened().general()->setStartedAtLogin(true);
    EXPECT_EQ(loginItem.current, LoginItem::Status::enabled);
}

} // namespace
} // namespace vantrel
