#include <linux/views/DesktopSettings.h>
#include <linux/views/ViewEngine.h>
#include <linux/views/X11Connection.h>

#include <QDataStream>
#include <QIODevice>
#include <QQuickItem>
#include <QQuickWindow>

#include <desktop/OtherProgram.h>
#include <gtest/gtest.h>

#include <string>

namespace vantrel::tests {
namespace {

/// The content of the property as a settings daemon writes it.
class Settings {
public:
    explicit Settings(QDataStream::ByteOrder order = QDataStream::LittleEndian)
        : m_stream(&m_items, QIODevice::WriteOnly), m_order(order) {
        m_stream.setByteOrder(order);
    }

    Settings &number(const QByteArray &name, qint32 value) {
        begin(0, name);
        m_stream << value;
        return *this;
    }

    Settings &text(const QByteArray &name, const QByteArray &value) {
        begin(1, name);
        m_stream << static_cast<quint32>(value.size());
        padded(value);
        return *this;
    }

    Settings &color(const QByteArray &name) {
        begin(2, name);
        m_stream << quint64{0};
        return *this;
    }

    [[nodiscard]] QByteArray data() const {
        QByteArray all;
        QDataStream stream(&all, QIODevice::WriteOnly);
        stream.setByteOrder(m_order);
        stream << static_cast<quint8>(m_order == QDataStream::BigEndian) << quint8{} << quint16{}
               << quint32{7} << m_count;
        return all + m_items;
    }

private:
    void begin(quint8 type, const QByteArray &name) {
        ++m_count;
        m_stream << type << quint8{} << static_cast<quint16>(name.size());
        padded(name);
        m_stream << quint32{3};
    }

    void padded(const QByteArray &text) {
        m_stream.writeRawData(text.constData(), static_cast<int>(text.size()));
        for (auto size = text.size(); size % 4 != 0; ++size)
            m_stream << quint8{};
    }

    QByteArray m_items;
    QDataStream m_stream;
    QDataStream::ByteOrder m_order;
    quint32 m_count = 0;
};

QByteArray manySettings(QDataStream::ByteOrder order) {
    Settings settings(order);
    return settings.text("Net/ThemeName", "Adwaita")
        .color("Some/Color")
        .number("Gtk/EnableAnimations", 0)
        .text("Gtk/FontName", "")
        .number("Xft/DPI", -96)
        .data();
}

TEST(DesktopSettingsTest, FindsANumberAmongOthersInEitherByteOrder) {
    for (const auto order : {QDataStream::LittleEndian, QDataStream::BigEndian}) {
        const DesktopSettings settings(manySettings(order));
        EXPECT_EQ(settings.integer("Gtk/EnableAnimations"), 0);
        EXPECT_EQ(settings.integer("Xft/DPI"), -96);
        EXPECT_EQ(settings.integer("Net/ThemeName"), std::nullopt);
        EXPECT_EQ(settings.integer("Gtk/Nothing"), std::nullopt);
        EXPECT_TRUE(settings.isMotionReduced());
    }
}

TEST(DesktopSettingsTest, LetsThingsMoveUnlessTheDesktopSaysOtherwise) {
    EXPECT_FALSE(DesktopSettings({}).isMotionReduced());
    EXPECT_FALSE(DesktopSettings(Settings().data()).isMotionReduced());
    EXPECT_FALSE(
        DesktopSettings(Settings().number("Gtk/EnableAnimations", 1).data()).isMotionReduced());
}

TEST(DesktopSettingsTest, SurvivesEveryPieceOfAList) {
    const QByteArray data = manySettings(QDataStream::LittleEndian);
    for (qsizetype length = 0; length < data.size(); ++length)
        EXPECT_EQ(DesktopSettings(data.first(length)).integer("Xft/DPI"), std::nullopt) << length;
}

TEST(DesktopSettingsTest, SurvivesLengthsAndKindsThatCannotBe) {
    for (qsizetype place = 8; place < 24; ++place) {
        QByteArray data = manySettings(QDataStream::LittleEndian);
        data[place] = '\xff';
        (void)DesktopSettings(data).integer("Xft/DPI");
    }
}

/// Plays the settings daemon for as long as it lives.
class Daemon {
public:
    Daemon(OtherProgram &program, const QByteArray &data) : m_program(program) {
        xcb_connection_t *connection = program.connection();
        m_window = xcb_generate_id(connection);
        xcb_create_window(connection, 0, m_window, program.root(), 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        const xcb_atom_t settings = atom("_XSETTINGS_SETTINGS");
        xcb_change_property(connection, XCB_PROP_MODE_REPLACE, m_window, settings, settings, 8,
                            static_cast<std::uint32_t>(data.size()), data.constData());
        xcb_set_selection_owner(connection, m_window, atom("_XSETTINGS_S0"), XCB_CURRENT_TIME);
        settle();
    }
    ~Daemon() {
        xcb_destroy_window(m_program.connection(), m_window);
        settle();
    }
    Daemon(const Daemon &) = delete;
    Daemon &operator=(const Daemon &) = delete;

private:
    xcb_atom_t atom(const std::string &name) {
        const x11Reply reply(xcb_intern_atom_reply(
            m_program.connection(),
            xcb_intern_atom(m_program.connection(), false, static_cast<std::uint16_t>(name.size()),
                            name.c_str()),
            nullptr));
        return reply->atom;
    }
    void settle() { (void)m_program.focused(); }

    using x11Reply = x11::Reply<xcb_intern_atom_reply_t>;

    OtherProgram &m_program;
    xcb_window_t m_window;
};

TEST(DesktopSettingsTest, AreThoseOfTheDaemonThatRuns) {
    OtherProgram program;
    EXPECT_FALSE(DesktopSettings::ofServer().isMotionReduced());
    {
        const Daemon daemon(program, manySettings(QDataStream::LittleEndian));
        EXPECT_TRUE(DesktopSettings::ofServer().isMotionReduced());
    }
    EXPECT_FALSE(DesktopSettings::ofServer().isMotionReduced());
}

TEST(ViewMotionTest, FollowsTheDesktopWithEachView) {
    OtherProgram program;
    ViewEngine engine;
    const auto isStill = [&] {
        QQuickWindow window;
        const auto item =
            engine.makeItem({u"Views.Tests"_qs, u"Moving"_qs, {}}, window, ItemSize::ofContent);
        return item && item->property("reducedMotion").toBool();
    };
    EXPECT_FALSE(isStill());
    {
        const Daemon daemon(program, manySettings(QDataStream::LittleEndian));
        EXPECT_TRUE(isStill());
    }
    EXPECT_FALSE(isStill());
}

} // namespace
} // namespace vantrel::tests
