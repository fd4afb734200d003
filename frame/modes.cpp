#include "frame/modes.h"

#include "frame/document.h"
#include "frame/keep_config.h"
#include "frame/report.h"
#include "frame/section_order.h"
#include "platform/include/return_codes.h"

#include <sys/stat.h>

std::uint32_t gKeepConfig = 0;

namespace {

FILE* create_private_file(const char* path) {
    const mode_t mask = umask(S_IRWXG | S_IRWXO);
    FILE* file = fopen(path, "w");
    umask(mask);
    return file;
}

void write_document(FILE* error_file) {
    FILE* ini_file = create_private_file(backup_path);
    if (ini_file == nullptr) {
        report_fault(error_file, USR_RET_INI_BACKUP_FILE_CREATE_ERROR);
        return;
    }
    write_sections(ini_file);
    fclose(ini_file);
}

int check_document(const char* ini_name, FILE* error_file) {
    dictionary* ini = load_document(ini_name);
    if (ini == nullptr) {
        return report_fault(error_file, USR_RET_INI_RESTORE_FILE_NOT_EXISTED);
    }
    const int result = check_sections(ini, error_file);
    iniparser_freedict(ini);
    return result;
}

} // namespace

void create_config_ini_file() {
    FILE* error_file = fopen(report_path, "w");
    if (error_file == nullptr) {
        printf("cannot open %s\n", report_path);
        return;
    }
    write_document(error_file);
    fclose(error_file);
}

int check_config_ini_file(const char* ini_name) {
    FILE* error_file = fopen(report_path, "w");
    if (error_file == nullptr) {
        fprintf(stderr, "cannot open %s\n", report_path);
        return -1;
    }
    const int result = check_document(ini_name, error_file);
    fclose(error_file);
    return result;
}

int parse_config_ini_file(const char* ini_name) {
    dictionary* ini = load_document(ini_name);
    if (ini == nullptr) {
        fprintf(stderr, "cannot parse file: %s\n", ini_name);
        return -1;
    }
    iniparser_dump(ini, stderr);
    restore_sections(ini, gKeepConfig);
    iniparser_freedict(ini);
    return 0;
}
