// The sections, in the order in which each mode handles them.
#pragma once

#include "frame/document.h"

#include <cstdint>

// Settings that the device keeps as they are in restore, as a bit mask.
enum KeepConfig : std::uint32_t {
    KEEP_CONFIG_PASSWORD = 1, // the user accounts: section "password"
    KEEP_CONFIG_NETWORK = 2,  // the addressing: section "network settings"
};

// Writes the header, the banners and every section.
void write_sections(FILE* ini_file);

// Runs the section checks up to the first that fails, whose code is then in
// the report: 0 when all pass, else -1.
int check_sections(const dictionary* ini, FILE* error_file);

// Applies every section that no bit of keep (KEEP_CONFIG_*) protects.
void restore_sections(const dictionary* ini, std::uint32_t keep);
