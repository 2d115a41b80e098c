#include "SettingsDaemon.h"

#include <cstdlib>
#include <memory>
#include <string_view>

namespace vantrel::tests {

namespace {

xcb_atom_t atom(xcb_connection_t *connection, std::string_view name) {
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(connection,
                              xcb_intern_atom(connection, false,
                                              static_cast<std::uint16_t>(name.size()), name.data()),
                              nullptr),
        &std::free);
    return reply->atom;
}

/// Until the server has dealt with all that it was sent.
void settle(OtherProgram &program) {
    (void)program.focused();
}

} // namespace

SettingsDaemon::SettingsDaemon(OtherProgram &program, const QByteArray &data)
    : m_program(program), m_window(xcb_generate_id(program.connection())) {
    xcb_connection_t *connection = program.connection();
    xcb_create_window(connection, 0, m_window, program.root(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    const xcb_atom_t settings = atom(connection, "_XSETTINGS_SETTINGS");
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, m_window, settings, settings, 8,
                        static_cast<std::uint32_t>(data.size()), data.constData());
    xcb_set_selection_owner(connection, m_window, atom(connection, "_XSETTINGS_S0"),
                            XCB_CURRENT_TIME);
    settle(m_program);
}

SettingsDaemon::~SettingsDaemon() {
    xcb_destroy_window(m_program.connection(), m_window);
    settle(m_program);
}

} // namespace vantrel::tests
