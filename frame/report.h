// The check report: one number, that of the first fault, or nothing; and the
// steps that the section checks share.
//
// A check gives 0 when its keys pass. At the first fault it writes the fault's
// code and gives a nonzero value at once, which ends the check run.
#pragma once

#include "frame/document.h"

#include <cstdint>
#include <initializer_list>

// Writes a code, of usr_ret_e or a validator's own, and gives the value to return.
int report_fault(FILE* error_file, int code);

// The codes of one key.
struct FaultCodes {
    int not_found;
    int invalid;
};

// A validator's verdict is in the low 8 bits of its result: 0 refuses the value.
template <typename Result>
bool is_accepted(Result verdict) {
    return static_cast<std::uint8_t>(verdict) != 0;
}

// Judges a number read with fallback -1: -1 is not found, and a number that
// the device's validator refuses is invalid.
template <typename Validator>
int check_value(FILE* error_file, int value, FaultCodes codes, Validator accepts) {
    if (value == -1) {
        return report_fault(error_file, codes.not_found);
    }
    if (!is_accepted(accepts(value))) {
        return report_fault(error_file, codes.invalid);
    }
    return 0;
}

template <typename Validator>
int check_number(const dictionary* ini, FILE* error_file, const char* entry, FaultCodes codes,
                 Validator accepts) {
    return check_value(error_file, read_int(ini, entry, -1), codes, accepts);
}

// The same for a text.
template <typename Validator>
int check_text(const dictionary* ini, FILE* error_file, const char* entry, FaultCodes codes,
               Validator accepts) {
    const char* text = read_string(ini, entry, absent);
    if (is_absent(text)) {
        return report_fault(error_file, codes.not_found);
    }
    return is_accepted(accepts(text)) ? 0 : report_fault(error_file, codes.invalid);
}

// Judges only whether there is a number other than -1.
int check_present(const dictionary* ini, FILE* error_file, const char* entry, int not_found);

// Runs the sub-steps of a section's check in order; the first that fails ends it.
using CheckStep = int (*)(const dictionary* ini, FILE* error_file);
int run_check_steps(std::initializer_list<CheckStep> steps, const dictionary* ini,
                    FILE* error_file);
