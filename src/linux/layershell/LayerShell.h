#pragma once

struct zwlr_layer_shell_v1;

namespace vantrel {

/// The compositor's layer shell, by which a program may put surfaces over everything else on an
/// output, where the compositor has one: those of the wlroots family, KWin and COSMIC do, Mutter
/// and Weston do not.
///
/// Construct it after the application object and ahead of the first window and thread. Main thread
/// only.
class LayerShell {
public:
    /// Asks the compositor. Where the variable VANTREL_LAYER_SHELL is "off" it does not, for those
    /// whose compositor has a poor one.
    LayerShell();
    LayerShell(const LayerShell &) = delete;
    LayerShell &operator=(const LayerShell &) = delete;

    /// Each surface must be gone before.
    ~LayerShell();

    [[nodiscard]] bool isOffered() const { return m_shell != nullptr; }

    /// Null where it is not offered.
    [[nodiscard]] zwlr_layer_shell_v1 *handle() const { return m_shell; }

private:
    zwlr_layer_shell_v1 *m_shell = nullptr;
};

} // namespace vantrel
