#pragma once

#include <QString>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vantrel::tests {

/// Has the rest of a scope run without the superuser's rights, where the test has them.
class OrdinaryRights {
public:
    explicit OrdinaryRights(const QString &scratch) {
        if (m_isSuperuser) {
            ::chmod(qPrintable(scratch), 0777);
            m_isSuperuser = ::seteuid(nobody) == 0;
        }
    }
    ~OrdinaryRights() {
        if (m_isSuperuser) {
            EXPECT_EQ(::seteuid(0), 0);
        }
    }
    OrdinaryRights(const OrdinaryRights &) = delete;
    OrdinaryRights &operator=(const OrdinaryRights &) = delete;

private:
    static constexpr uid_t nobody = 65534;
    bool m_isSuperuser = ::geteuid() == 0;
};

} // namespace vantrel::tests
