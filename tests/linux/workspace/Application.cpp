// An application that opens links for the tests: its first argument is a folder in which it leaves
// one file with the others, a line each. With the name "endless" it then stays until it is ended.

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

int main(int argc, char **argv) {
    if (argc < 3)
        return 1;
    std::string draft = std::string(argv[1]) + "/.draft-XXXXXX";
    const int descriptor = mkstemp(draft.data());
    FILE *file = fdopen(descriptor, "w");
    if (!file)
        return 1;
    for (int i = 2; i < argc; ++i)
        std::fprintf(file, "%s\n", argv[i]);
    if (std::strcmp(argv[2], "endless") == 0)
        std::fprintf(file, "%d\n", static_cast<int>(getpid()));
    std::fclose(file);

    // Under its final name the file is complete.
    const std::string place = std::string(argv[1]) + "/opened-" + std::to_string(getpid());
    if (std::rename(draft.c_str(), place.c_str()) != 0)
        return 1;
    while (std::strcmp(argv[2], "endless") == 0)
        pause();
    return 0;
}
