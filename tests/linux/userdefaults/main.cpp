#include <QCoreApplication>

#include <gtest/gtest.h>

/// With an application object: a file that is followed is heard of from the event loop.
int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
