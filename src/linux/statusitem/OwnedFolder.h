#pragma once

#include <QString>
#include <QTemporaryDir>

namespace vantrel {

/// A temporary folder that goes with this object. One whose owner was killed is removed by the next
/// owner of a folder of the same kind and place.
///
/// The owner holds a lock on a file in the folder, which the kernel lets go of however it ends.
/// The file gets its name with the lock already on it, so a folder in which it can be locked has no
/// owner, and one without it, which may be in the making, is left alone.
class OwnedFolder {
public:
    /// Its name begins with `kind` and stands in the folder `place`.
    OwnedFolder(const QString &place, const QString &kind);
    OwnedFolder(const OwnedFolder &) = delete;
    OwnedFolder &operator=(const OwnedFolder &) = delete;
    ~OwnedFolder();

    /// False where it could not be made.
    [[nodiscard]] bool isValid() const { return m_folder.isValid(); }
    [[nodiscard]] QString errorString() const { return m_folder.errorString(); }
    [[nodiscard]] QString path() const { return m_folder.path(); }
    [[nodiscard]] QString filePath(const QString &name) const { return m_folder.filePath(name); }

private:
    void lock();

    QTemporaryDir m_folder;
    int m_lock = -1;
};

} // namespace vantrel
