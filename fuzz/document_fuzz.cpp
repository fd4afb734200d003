// Any bytes as the document: check, restore, backup, and the same with that backup.
//
// A document that check passes makes a switch whose own backup passes too, unless it
// holds a value that no document can carry. That backup, restored, changes nothing.

#include "fuzz/fuzz.h"

#include "platform/simulator/state.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    simulator::reset();
    dictionary* ini = fuzz::load(std::string(reinterpret_cast<const char*>(data), size));
    if (ini == nullptr) {
        return 0;
    }
    const bool carried = !fuzz::holds_what_no_document_can(ini);
    const bool passes = fuzz::check(ini);
    restore_sections(ini, 0);
    iniparser_freedict(ini);

    const std::string document = fuzz::backup();
    dictionary* written = fuzz::load(document);
    fuzz::require(written != nullptr || !carried, "the backup cannot be loaded", document);
    if (written == nullptr) {
        return 0;
    }
    const bool backup_passes = fuzz::check(written);
    iniparser_freedict(written);
    if (passes && carried) {
        fuzz::require(backup_passes, "the backup does not pass", document);
        fuzz::restore(document);
        fuzz::require(fuzz::backup() == document, "another backup after its restore", document);
    }
    return 0;
}
