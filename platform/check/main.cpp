// switch-device-check: tries whether a device library keeps the contract of
// platform/include. Exit status: 0 when all passed, 1 when anything failed, 2 for wrong
// arguments.

#include "frame/document.h"
#include "frame/section_order.h"
#include "platform/check/check.h"
#include "platform/include/aes.h"
#include "platform/include/ports.h"
#include "platform/include/start_up.h"

#include <unistd.h>

namespace {

void stop(int number) {
    stopped = number;
}

void start_up() {
    init_umdev(0);
    initdef();
    port_init();
}

// The code that check reports for the document of a backup, or 0.
int code_of_backup() {
    FILE* document = written_document();
    FILE* error_file = tmpfile();
    dictionary* ini = load_document(formatted("/proc/self/fd/%d", fileno(document)).c_str());
    int code = ini == nullptr || error_file == nullptr ? 211 : 0;
    if (code == 0 && check_sections(ini, error_file) != 0) {
        rewind(error_file);
        code = fscanf(error_file, "%d", &code) == 1 ? code : -1;
    }
    iniparser_freedict(ini);
    return code;
}

// Another process, for which the library is loaded anew, gets the key on its standard
// input, so that no secret is printed.
int compare_key() {
    char other[sizeof key] = {};
    start_up();
    return fread(other, sizeof other, 1, stdin) == 1 && memcmp(other, key, sizeof key) == 0 ? 0 : 3;
}

std::string try_other_process() {
    signal(SIGPIPE, SIG_IGN); // it may not start
    FILE* other = popen(formatted("/proc/%d/exe --key 2>/dev/null", getpid()).c_str(), "w");
    if (other == nullptr) {
        return "SKIP no other process can be started";
    }
    fwrite(key, sizeof key, 1, other);
    const int status = pclose(other);
    return status == 0                                     ? ""
           : WIFEXITED(status) && WEXITSTATUS(status) == 3 ? "expected the same bytes, seen others"
                                                           : "SKIP no other process can be started";
}

// A getter that writes too much would harm a backup: it is tried before.
void check_all(const std::string& option) {
    check_converters();
    check_ports();
    check_system();
    check_security();
    check_services();
    check_switching();
    if (failed > 0) {
        return report("backup", "check accepts the document",
                      "SKIP a try above fails, so nothing is set either");
    }
    const Lines before = document_lines();
    const int code = code_of_backup();
    report("backup", "check accepts the document",
           code == 0 || (code == 294 && g_ucMaxPhyPort < 8)
               ? ""
               : formatted("expected no code, seen %d: see docs/porting.md", code));
    const bool is_writing = !option.empty() && failed == 0;
    for (std::size_t i = 0; i < writes.size() && is_writing && stopped == 0; ++i) {
        writes[i]();
    }
    report("backup", "the document is the same before and after",
           difference(before, document_lines()));
    for (std::size_t i = 0; i < fills.size() && is_writing && option == "--fill" && stopped == 0;
         ++i) {
        fills[i]();
    }
}

} // namespace

int main(int argc, char** argv) {
    const std::string option = argc > 1 ? argv[1] : "";
    if (option == "--key") {
        return compare_key();
    }
    if (argc > 2 || (argc == 2 && option != "--write" && option != "--fill")) {
        fprintf(stderr, "usage: switch-device-check [--write | --fill]\n");
        return 2;
    }
    printf("TAP version 13\n%s", argc == 1 ? "# This run only reads\n" : "");
    const std::string first_key = hex(key, sizeof key);
    report("key", "is the same in another process", try_other_process());
    for (const int number : {SIGHUP, SIGINT, SIGPIPE, SIGTERM}) {
        signal(number, stop);
    }
    start_up();
    check_all(option);
    report("key", "is the same at the end",
           hex(key, sizeof key) == first_key ? "" : "expected the same bytes, seen others");
    printf(stopped != 0 ? "Bail out! Stopped by signal %d\n" : "1..%d\n",
           stopped != 0 ? static_cast<int>(stopped) : tried);
    return failed == 0 && stopped == 0 ? 0 : 1;
}
