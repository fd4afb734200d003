// The sections, in the order in which each mode handles them.
#pragma once

#include "frame/document.h"

#include <cstdint>

// Writes the header, the banners and every section.
void write_sections(FILE* ini_file);

// Runs the section checks up to the first that fails, whose code is then in the
// report. Returns 0 if all pass, else -1.
int check_sections(const dictionary* ini, FILE* error_file);

// Applies every section except those that a bit of keep (KEEP_CONFIG_*) names.
void restore_sections(const dictionary* ini, std::uint32_t keep);
