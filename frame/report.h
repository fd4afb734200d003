// The check report, which is empty or holds one code, and the steps that the
// section checks share.
//
// A check returns 0 if its keys pass. At the first fault it writes the fault's code
// and returns nonzero, which ends the run.
#pragma once

#include "frame/document.h"

#include <cstdint>
#include <initializer_list>
#include <optional>

// Writes a fault's code (of usr_ret_e, or the validator's own). Returns -1, for the
// check to return.
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

// Reports codes.not_found for an absent number, codes.invalid for one that the
// validator refuses.
template <typename Validator>
int check_value(FILE* error_file, std::optional<int> value, FaultCodes codes, Validator accepts) {
    if (!value) {
        return report_fault(error_file, codes.not_found);
    }
    return is_accepted(accepts(*value)) ? 0 : report_fault(error_file, codes.invalid);
}

template <typename Validator>
int check_number(const dictionary* ini, FILE* error_file, const char* entry, FaultCodes codes,
                 Validator accepts) {
    return check_value(error_file, read_number(ini, entry), codes, accepts);
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

// Judges only whether the number is there.
int check_present(const dictionary* ini, FILE* error_file, const char* entry, int not_found);

// Runs the steps of a section's check in order; the first that fails ends it.
using CheckStep = int (*)(const dictionary* ini, FILE* error_file);
int run_check_steps(std::initializer_list<CheckStep> steps, const dictionary* ini,
                    FILE* error_file);
