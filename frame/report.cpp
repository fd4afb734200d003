#include "frame/report.h"

int report_fault(FILE* error_file, int code) {
    fprintf(error_file, "%d\n", code);
    return -1;
}

int check_present(const dictionary* ini, FILE* error_file, const char* entry, int not_found) {
    return read_number(ini, entry) ? 0 : report_fault(error_file, not_found);
}

int run_check_steps(std::initializer_list<CheckStep> steps, const dictionary* ini,
                    FILE* error_file) {
    for (const CheckStep step : steps) {
        const int result = step(ini, error_file);
        if (result != 0) {
            return result;
        }
    }
    return 0;
}
