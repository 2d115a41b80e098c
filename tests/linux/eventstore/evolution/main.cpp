#include <gtest/gtest.h>

// Under the address sanitizer: the service's library keeps eight bytes of each account for good,
// and without frame pointers no more of whose they are can be told in good time.
extern "C" const char *__lsan_default_suppressions();
extern "C" const char *__lsan_default_suppressions() {
    return "leak:g_malloc0";
}

int main(int argc, char *argv[]) {
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS(); // Each test makes the event loop that it is about.
}
