#include "Profile.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace vantrel::tests {
Profile *profile = nullptr;
}

int main(int argc, char **argv) {
    vantrel::tests::Profile profile;
    vantrel::tests::profile = &profile;
    QCoreApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
