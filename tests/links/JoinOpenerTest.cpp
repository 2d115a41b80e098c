#include <fakes/RecordingWorkspace.h>
#include <links/JoinOpener.h>

#include <QStringList>

#include <gtest/gtest.h>

#include <ostream>

namespace vantrel {
namespace fakes {

void PrintTo(const RecordingWorkspace::Opened &opened, std::ostream *out) {
    *out << opened.url.toStdString() << " in "
         << (opened.application ? opened.application->value.toStdString() : "its handler");
}

} // namespace fakes

namespace {

using Opened = fakes::RecordingWorkspace::Opened;
using Calls = std::vector<Opened>;

const ApplicationId browser{u"browser.desktop"_qs};

class JoinOpenerTest : public testing::Test {
protected:
    fakes::RecordingWorkspace workspace;
    const Url zoom = *Url::fromString(u"https://us02web.zoom.us/j/1?pwd=a%20b"_qs);

    JoinOpenerTest() { workspace.browser = browser; }

    [[nodiscard]] Opened byHandler(const QString &url) const { return {url, std::nullopt}; }

    [[nodiscard]] Calls shortcut(const QString &name) {
        workspace.opened.clear();
        JoinOpener::runShortcut(workspace, name);
        return workspace.opened;
    }

    [[nodiscard]] Calls dialled(const QString &rawNumber) {
        workspace.opened.clear();
        JoinOpener::dial(workspace, rawNumber);
        return workspace.opened;
    }
};

TEST_F(JoinOpenerTest, HandsTheLinkToItsHandlerForTheApp) {
    JoinOpener::open(workspace, zoom, JoinTarget::appWhenInstalled, std::nullopt);
    EXPECT_EQ(workspace.opened, Calls{byHandler(zoom.absoluteString())});
}

TEST_F(JoinOpenerTest, OpensTheLinkInTheDefaultBrowserNotByItsHandler) {
    JoinOpener::open(workspace, zoom, JoinTarget::defaultBrowser, std::nullopt);
    EXPECT_EQ(workspace.opened, (Calls{{zoom.absoluteString(), browser}}));
}

TEST_F(JoinOpenerTest, FallsBackToTheHandlerWithoutADefaultBrowser) {
    workspace.browser.reset();
    JoinOpener::open(workspace, zoom, JoinTarget::defaultBrowser, std::nullopt);
    EXPECT_EQ(workspace.opened, Calls{byHandler(zoom.absoluteString())});
}

TEST_F(JoinOpenerTest, AsksForTheBrowserWithAPlainWebAddress) {
    class ProbedWorkspace : public fakes::RecordingWorkspace {
    public:
        mutable QStringList probes;
        [[nodiscard]] std::optional<ApplicationId>
        applicationToOpen(const Url &url) const override {
            probes.append(url.absoluteString());
            return browser;
        }
    } probed;
    JoinOpener::open(probed, zoom, JoinTarget::defaultBrowser, std::nullopt);
    ASSERT_EQ(probed.probes.size(), 1);
    EXPECT_TRUE(probed.probes.first().startsWith(u"https://"_qs));
    EXPECT_FALSE(probed.probes.first().contains(u"zoom"_qs));
    JoinOpener::open(probed, zoom, JoinTarget::appWhenInstalled, std::nullopt);
    EXPECT_EQ(probed.probes.size(), 1);
}

TEST_F(JoinOpenerTest, RunsTheShortcutAfterTheLinkIsHandedOver) {
    for (const JoinTarget target : allJoinTargets) {
        workspace.opened.clear();
        JoinOpener::open(workspace, zoom, target, u"Focus"_qs);
        ASSERT_EQ(workspace.opened.size(), 2U);
        EXPECT_EQ(workspace.opened[0].url, zoom.absoluteString());
        EXPECT_EQ(workspace.opened[1], byHandler(u"shortcuts://run-shortcut?name=Focus"_qs));
    }
}

TEST_F(JoinOpenerTest, RunsNoShortcutForABlankName) {
    for (const QString &name : {u""_qs, u" "_qs, u"   \t "_qs, u"\u00a0\u2003"_qs}) {
        workspace.opened.clear();
        JoinOpener::open(workspace, zoom, JoinTarget::appWhenInstalled, name);
        EXPECT_EQ(workspace.opened.size(), 1U);
        EXPECT_EQ(shortcut(name), Calls{});
    }
}

TEST_F(JoinOpenerTest, TrimsSpacesAroundTheNameOfAShortcutAndEncodesThoseWithin) {
    EXPECT_EQ(shortcut(u" \tDo not disturb \t"_qs),
              Calls{byHandler(u"shortcuts://run-shortcut?name=Do%20not%20disturb"_qs)});
    JoinOpener::open(workspace, zoom, JoinTarget::appWhenInstalled, u"  In a call "_qs);
    EXPECT_EQ(workspace.opened.back(),
              byHandler(u"shortcuts://run-shortcut?name=In%20a%20call"_qs));
}

TEST_F(JoinOpenerTest, TakesALineBreakForAPartOfTheName) {
    EXPECT_EQ(shortcut(u"\n"_qs), Calls{byHandler(u"shortcuts://run-shortcut?name=%0A"_qs)});
    EXPECT_EQ(shortcut(u" a\n "_qs), Calls{byHandler(u"shortcuts://run-shortcut?name=a%0A"_qs)});
}

TEST_F(JoinOpenerTest, SendsAmpersandAndEqualsSignAsTheyStand) {
    EXPECT_EQ(shortcut(u"a&b=c"_qs), Calls{byHandler(u"shortcuts://run-shortcut?name=a&b=c"_qs)});
}

TEST_F(JoinOpenerTest, EncodesExactlyWhatAQueryMayNotHold) {
    EXPECT_EQ(shortcut(u"AZaz09-._~!$&'()*+,;=:@/?"_qs),
              Calls{byHandler(u"shortcuts://run-shortcut?name=AZaz09-._~!$&'()*+,;=:@/?"_qs)});
    EXPECT_EQ(shortcut(u"#%\"<>[]\\^`{|}"_qs),
              Calls{byHandler(
                  u"shortcuts://run-shortcut?name=%23%25%22%3C%3E%5B%5D%5C%5E%60%7B%7C%7D"_qs)});
    EXPECT_EQ(
        shortcut(u"Zoë 会议 \U0001F4F9"_qs),
        Calls{byHandler(
            u"shortcuts://run-shortcut?name=Zo%C3%AB%20%E4%BC%9A%E8%AE%AE%20%F0%9F%93%B9"_qs)});
}

TEST_F(JoinOpenerTest, RunsNothingForANameThatIsNoUnicode) {
    EXPECT_EQ(shortcut(QString(QChar(0xD800))), Calls{});
}

TEST_F(JoinOpenerTest, DialsThePlusAndEveryDigitInOrder) {
    EXPECT_EQ(dialled(u"+1 (415) 555-2671 ext. 89"_qs), Calls{byHandler(u"tel:+1415555267189"_qs)});
    EXPECT_EQ(dialled(u"044.123 45/67"_qs), Calls{byHandler(u"tel:0441234567"_qs)});
    EXPECT_EQ(dialled(u"1+2"_qs), Calls{byHandler(u"tel:1+2"_qs)});
}

TEST_F(JoinOpenerTest, DialsNoDigitsOfOtherScripts) {
    EXPECT_EQ(dialled(u"+٤١ ４４ 12"_qs), Calls{byHandler(u"tel:+12"_qs)});
}

TEST_F(JoinOpenerTest, HandsOverANumberThatFiltersToNothing) {
    EXPECT_EQ(dialled(u""_qs), Calls{byHandler(u"tel:"_qs)});
    EXPECT_EQ(dialled(u"call me; rm -rf /"_qs), Calls{byHandler(u"tel:"_qs)});
}

} // namespace
} // namespace vantrel
