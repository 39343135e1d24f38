// Stands in a test where the datalogger is looked for. It ends at once, unless the environment says otherwise:
//   KELMAR_DUMMY_RECORD=FILE  it writes down how many arguments it was given
//   KELMAR_DUMMY_WAITS=1      it says that it is ready and waits for a line
//   KELMAR_DUMMY_MARK=FILE    it writes down that it was told to end, and ends
//   KELMAR_DUMMY_CODE=NUMBER  it ends with that code

#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace {

void note(const char *path, const char *text)
{
    if (std::FILE *file = std::fopen(path, "wb")) {
        std::fputs(text, file);
        std::fclose(file);
    }
}

void toldToEnd(int)
{
    note(std::getenv("KELMAR_DUMMY_MARK"), "told\n");
    std::_Exit(0);
}

} // namespace

int main(int argc, char **)
{
    if (const char *path = std::getenv("KELMAR_DUMMY_RECORD")) {
        char text[32];
        std::snprintf(text, sizeof text, "%d arguments\n", argc - 1);
        note(path, text);
    }
    if (std::getenv("KELMAR_DUMMY_MARK"))
        std::signal(SIGTERM, toldToEnd);
    if (std::getenv("KELMAR_DUMMY_WAITS")) {
        std::puts("ready");
        std::fflush(stdout);
        std::getchar();
    }
    const char *code = std::getenv("KELMAR_DUMMY_CODE");
    return code ? std::atoi(code) : 0;
}
