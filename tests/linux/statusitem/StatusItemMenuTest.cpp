#include "StatusItemFixture.h"

#include <QJsonArray>

#include <gmock/gmock.h>

#include <limits>

namespace vantrel::tests {

namespace {

constexpr char invalidArguments[] = "org.freedesktop.DBus.Error.InvalidArgs";

QString text(const char *latin1) {
    return QString::fromLatin1(latin1);
}

/// Braces around a single array would copy it.
QJsonArray list(std::initializer_list<QJsonValue> values) {
    QJsonArray array;
    for (const QJsonValue &value : values)
        array.append(value);
    return array;
}

class StatusItemMenuTest : public StatusItemTest {
protected:
    StatusItemMenuTest() {
        menu = {MenuItem{QStringLiteral("Preferences…"), text(","),
                         [this] { chosen.append(text("preferences")); }},
                MenuItem{text("snake_case & more"), {}, {}}, MenuSeparator{},
                MenuItem{text("Quit Vantrel"), text("q"), [this] { chosen.append(text("quit")); }}};
        makeItem();
        panel.await(text("registered"));
    }

    QJsonArray lines() { return panel.ask(text("menu")).value(u"value").toArray(); }

    QJsonObject call(const char *member, const char *signature, const QJsonArray &arguments) {
        return panel.ask(text("call"), {{text("on"), text("menu")},
                                        {text("member"), text(member)},
                                        {text("signature"), text(signature)},
                                        {text("arguments"), arguments}});
    }

    /// Waits until everything that the host asked for so far has reached the program.
    void settle() {
        bool hasPassed = false;
        panel.ask(text("scroll"));
        queue.async([&] { hasPassed = true; });
        EXPECT_TRUE(waitUntil([&] { return hasPassed; }));
    }

    Panel panel;
    QStringList chosen;
};

} // namespace

TEST_F(StatusItemMenuTest, HasTheLinesInTheirOrder) {
    const QJsonArray shown = lines();
    ASSERT_EQ(shown.size(), 4);
    EXPECT_EQ(shown[0].toObject().value(u"label"), QStringLiteral("Preferences…"));
    EXPECT_EQ(shown[0].toObject().value(u"shortcut"), list({list({text(",")})}));
    EXPECT_FALSE(shown[0].toObject().contains(u"enabled"));
    EXPECT_EQ(shown[1].toObject().value(u"label"), text("snake__case & more"));
    EXPECT_EQ(shown[1].toObject().value(u"enabled"), false);
    EXPECT_FALSE(shown[1].toObject().contains(u"shortcut"));
    EXPECT_EQ(shown[2].toObject().value(u"type"), text("separator"));
    EXPECT_EQ(shown[3].toObject().value(u"label"), text("Quit Vantrel"));
}

TEST_F(StatusItemMenuTest, CarriesOutTheLineThatIsChosen) {
    panel.ask(text("click"), {{text("label"), text("Quit Vantrel")}});
    EXPECT_TRUE(waitUntil([&] { return !chosen.isEmpty(); }));
    EXPECT_EQ(chosen, QStringList{text("quit")});
}

TEST_F(StatusItemMenuTest, CarriesOutTheActionOfTheMenuMadeLast) {
    lines();
    std::get<MenuItem>(menu[3]).action = [this] { chosen.append(text("other")); };
    panel.ask(text("click"), {{text("label"), text("Quit Vantrel")}});
    EXPECT_TRUE(waitUntil([&] { return !chosen.isEmpty(); }));
    EXPECT_EQ(chosen, QStringList{text("other")});
}

TEST_F(StatusItemMenuTest, IsMadeAfreshForEachOpening) {
    EXPECT_EQ(menusMade, 0);
    lines();
    const int once = menusMade;
    EXPECT_GT(once, 0);
    menu = {MenuItem{text("Other"), {}, [] {}}};
    ASSERT_EQ(lines().size(), 1);
    EXPECT_GT(menusMade, once);
    panel.await(text("signal"), [](const auto &signal) {
        return signal.value(u"name").toString() == u"LayoutUpdated";
    });
}

TEST_F(StatusItemMenuTest, TellsOfAnotherMenuOnceAndOfTheSameNever) {
    lines();
    panel.takeSignals();
    lines();
    EXPECT_THAT(panel.takeSignals(), testing::ElementsAre());
    menu.pop_back();
    lines();
    EXPECT_THAT(panel.takeSignals(), testing::ElementsAre(text("LayoutUpdated")));
}

TEST_F(StatusItemMenuTest, DoesNothingForALineThatIsGone) {
    const QJsonObject quit = lines()[3].toObject();
    menu.pop_back();
    menu.insert(menu.begin(), MenuItem{text("First"), {}, [this] { chosen.append(text("no")); }});
    lines();
    EXPECT_EQ(
        call("Event", "isvu", {quit.value(u"id"), text("clicked"), text(""), 0}).value(u"error"),
        text(invalidArguments));
    settle();
    EXPECT_TRUE(chosen.isEmpty());
}

TEST_F(StatusItemMenuTest, DoesNothingForALineThatCannotBeChosenNorForOtherEvents) {
    const QJsonArray shown = lines();
    for (const int line : {1, 2}) {
        EXPECT_FALSE(panel.ask(text("click"), {{text("id"), shown[line].toObject().value(u"id")}})
                         .contains(u"error"));
    }
    call("Event", "isvu", {shown[0].toObject().value(u"id"), text("hovered"), text(""), 0});
    call("Event", "isvu", {0, text("opened"), text(""), 0});
    settle();
    EXPECT_TRUE(chosen.isEmpty());
}

TEST_F(StatusItemMenuTest, TakesEventsInGroupsAndNamesTheUnknownLines) {
    const int first = lines()[0].toObject().value(u"id").toInt();
    const QJsonArray clicked{first, text("clicked"), text(""), 0};
    const QJsonArray unknown{9999, text("clicked"), text(""), 0};
    EXPECT_EQ(call("EventGroup", "a(isvu)", list({list({clicked, unknown})})).value(u"value"),
              list({9999}));
    EXPECT_TRUE(waitUntil([&] { return !chosen.isEmpty(); }));
    EXPECT_EQ(chosen, QStringList{text("preferences")});
    EXPECT_EQ(call("EventGroup", "a(isvu)", list({list({unknown})})).value(u"error"),
              text(invalidArguments));
}

TEST_F(StatusItemMenuTest, AnswersForSingleLinesAndSingleProperties) {
    const int first = lines()[0].toObject().value(u"id").toInt();
    EXPECT_EQ(call("GetProperty", "is", {first, text("label")}).value(u"value"),
              QStringLiteral("Preferences…"));
    EXPECT_EQ(call("GetProperty", "is", {first, text("visible")}).value(u"value"), true);
    EXPECT_EQ(
        call("GetGroupProperties", "aias", list({list({first + 1, 9999}), list({text("enabled")})}))
            .value(u"value"),
        list({list({first + 1, QJsonObject{{text("enabled"), false}}})}));
    EXPECT_EQ(call("GetGroupProperties", "aias", list({list({}), list({})}))
                  .value(u"value")
                  .toArray()
                  .size(),
              5);
    const QJsonArray layout =
        call("GetLayout", "iias", list({0, 0, list({})})).value(u"value").toArray();
    EXPECT_EQ(layout[1].toArray()[2].toArray().size(), 0);
    const QJsonArray line = call("GetLayout", "iias", list({first, -1, list({text("label")})}))
                                .value(u"value")
                                .toArray();
    EXPECT_EQ(line[1].toArray()[1].toObject().size(), 1);
}

TEST_F(StatusItemMenuTest, TellsInGroupsWhetherToReadAgain) {
    EXPECT_EQ(call("AboutToShowGroup", "ai", list({list({0, 77})})).value(u"value"),
              list({list({0}), list({77})}));
    EXPECT_EQ(call("AboutToShowGroup", "ai", list({list({0})})).value(u"value"),
              list({list({}), list({})}));
    EXPECT_EQ(call("AboutToShowGroup", "ai", list({list({77})})).value(u"error"),
              text(invalidArguments));
}

TEST_F(StatusItemMenuTest, AnswersCallsThatMakeNoSenseWithAnError) {
    constexpr int huge = std::numeric_limits<int>::max();
    constexpr int tiny = std::numeric_limits<int>::min();
    lines();
    for (const auto &[member, signature, arguments] :
         {std::tuple{"GetLayout", "iias", list({huge, -1, list({})})},
          {"GetLayout", "iias", list({tiny, -1, list({})})},
          {"GetLayout", "iias", list({0, -2, list({})})},
          {"GetLayout", "iias", list({0, tiny, list({})})},
          {"GetProperty", "is", QJsonArray{huge, text("label")}},
          {"GetProperty", "is", QJsonArray{0, text("no such property")}},
          {"Event", "isvu", QJsonArray{tiny, text("clicked"), text(""), 0}},
          {"Event", "isvu", QJsonArray{-1, text("clicked"), text(""), 0}},
          {"AboutToShow", "i", QJsonArray{huge}}}) {
        EXPECT_EQ(call(member, signature, arguments).value(u"error"), text(invalidArguments))
            << member;
    }
    EXPECT_EQ(lines().size(), 4);
}

TEST_F(StatusItemMenuTest, IsEmptyWhereNobodyMakesIt) {
    const auto bare = bar.makeItem({});
    bare->setImage(text("pawprint"), text("Bare"));
    panel.awaitItem(text("title"), text("Bare"));
    EXPECT_EQ(lines().size(), 0);
}

} // namespace vantrel::tests
