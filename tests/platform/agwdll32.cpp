// A packet engine for tests: it writes each command to the file that SORVIK_AGW names.
#include <cstdio>
#include <cstdlib>

extern "C" __attribute__((visibility("default"))) void AGWPutData(const char* call, const char* data,
                                                                  int kind, int length, int channel) {
    const char* path = std::getenv("SORVIK_AGW");
    if (std::FILE* file = path ? std::fopen(path, "a") : nullptr) {
        std::fprintf(file, "[%s] [%s] %c %d %d\n", call, data, kind, length, channel);
        std::fclose(file);
    }
}
