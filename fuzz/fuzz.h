// What the fuzz targets share: the three modes on documents in memory.
#pragma once

#include "frame/section_order.h"

#include <string>

namespace fuzz {

// Null when the document cannot be loaded. Free it with iniparser_freedict.
dictionary* load(const std::string& document);

// Whether it passes; ends the process when a call of check could change the device.
bool check(const dictionary* ini);

std::string backup();

// Whether a value holds a double quote, which a document cannot carry.
bool holds_what_no_document_can(const dictionary* ini);

// Prints the message and the document and ends the process when untrue.
void require(bool condition, const char* message, const std::string& document);

} // namespace fuzz
