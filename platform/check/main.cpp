// switch-device-check: tries whether a device library keeps the contract of
// platform/include.
//
//   switch-device-check            reads only
//   switch-device-check --write    sets each setting too, and puts it back
//
// Exit status: 0 when all passed, 1 when anything failed, 2 for wrong arguments.

#include "frame/document.h"
#include "frame/section_order.h"
#include "platform/check/check.h"
#include "platform/include/aes.h"
#include "platform/include/ports.h"
#include "platform/include/start_up.h"

#include <cstdlib>

bool writing = false;
volatile std::sig_atomic_t stopped = 0;

namespace {

void stop(int number) {
    stopped = number;
}

// In a file without a name, since a document holds secrets.
FILE* written_document() {
    FILE* file = tmpfile();
    if (file == nullptr) {
        perror("switch-device-check: cannot create a temporary file");
        exit(2);
    }
    write_sections(file);
    rewind(file);
    return file;
}

// The code that check reports for a document, or 0.
int code_of(FILE* document) {
    dictionary* ini = load_document(Phrase("/proc/self/fd/%d", fileno(document)).chars);
    FILE* report = tmpfile();
    int code = ini == nullptr || report == nullptr ? 211 : 0;
    if (code == 0 && check_sections(ini, report) != 0) {
        rewind(report);
        code = fscanf(report, "%d", &code) == 1 ? code : -1;
    }
    iniparser_freedict(ini);
    return code;
}

bool next_line(FILE* document, char (&line)[2048]) {
    line[0] = '\0';
    return fgets(line, sizeof line, document) != nullptr;
}

// Names the key of a line that differs, and never its value.
void compare(FILE* before, FILE* after) {
    char lines[2][2048];
    char section[64] = "";
    Phrase found;
    rewind(before);
    for (bool more = true; more;) {
        more = next_line(before, lines[0]);
        more = next_line(after, lines[1]) || more;
        const bool is_clock =
            strncmp(lines[0], "Date ", 5) == 0 || strncmp(lines[0], "Time ", 5) == 0;
        sscanf(lines[0], "[%63[^]]", section);
        if (strcmp(lines[0], lines[1]) != 0 && !is_clock && !found.is_fault()) {
            found = {"expected the same lines, seen another \"%.*s\" in [%s]",
                     static_cast<int>(strcspn(lines[0], "=\n")), lines[0], section};
        }
    }
    report("backup", "the document is the same before and after", found);
}

void check_operations() {
    check_converters();
    check_aes();
    check_ports_and_masks();
    check_system();
    check_security();
    check_services();
    check_switching();
}

// A getter that writes too much would harm a backup: it is tried before.
void check_all(bool may_write) {
    check_operations();
    if (failed > 0) {
        return report("backup", "check accepts the document",
                      {"SKIP a try above fails, so nothing is set either"});
    }
    FILE* document = written_document();
    const int code = code_of(document);
    expect(code == 0 || (code == 294 && g_ucMaxPhyPort < 8), "backup", "check accepts the document",
           {"expected no code, seen %d: docs/porting.md says what to do", code});
    if (may_write) {
        printf("# Not called, since nothing undoes it: U_QosInit, U_SnmpInsUsm, and the setters "
               "of bridge timers, LLDP times and the log viewer\n");
        writing = true;
        check_operations();
        writing = false;
    }
    compare(document, written_document());
}

} // namespace

int main(int argc, char** argv) {
    const bool may_write = argc == 2 && strcmp(argv[1], "--write") == 0;
    if (argc != 1 && !may_write) {
        fprintf(stderr, "usage: switch-device-check [--write]\n");
        return 2;
    }
    for (const int number : {SIGHUP, SIGINT, SIGPIPE, SIGTERM}) {
        signal(number, stop);
    }
    unsigned char first_key[sizeof key];
    memcpy(first_key, key, sizeof key);
    init_umdev(0);
    initdef();
    port_init();
    printf("TAP version 13\n# %s\n",
           may_write ? "Reads, and then sets each setting and puts it back" : "Only reads");
    check_all(may_write);
    expect(memcmp(first_key, key, sizeof key) == 0, "key", "is the same at the end",
           {"expected the bytes from before start-up, seen others"});
    if (stopped != 0) {
        printf("Bail out! Stopped by signal %d\n", static_cast<int>(stopped));
    } else {
        printf("1..%d\n", tried);
    }
    return failed == 0 && stopped == 0 ? 0 : 1;
}
