// The document holds the server's address as a signed decimal number.

#include "sections/system/periodic_backup.h"

#include "platform/include/periodic_backup.h"

void backup_ini_periodicbackup_settings(FILE* ini_file) {
    TstFlshPeriodic setting = {};
    write_section_line(ini_file, "Periodic Back-Up");
    U_GetPeriodicSetting(&setting);
    fprintf(ini_file, "Enable State      = \"%d\" ;\n", setting.backUp == 1 ? 1 : 0);
    fprintf(ini_file, "Period Hour       = \"%d\" ;\n", setting.tm_hour);
    fprintf(ini_file, "Period Minute     = \"%d\" ;\n", setting.tm_min);
    fprintf(ini_file, "TFTP ServerIP     = \"%ld\" ;\n", signed_32_bits(setting.serverIp));
}

namespace {

constexpr std::size_t number_size = 128; // of the texts that numbers are read from

} // namespace

// Only the text "1" is on. Numbers are not judged: an hour of 99 goes to the device. A
// document without the section turns the backup off.
void restore_ini_periodic_backup(const dictionary* ini) {
    TstFlshPeriodic setting = {};
    setting.backUp = is_exactly_one(ini, "Periodic Back-Up:Enable State") ? 1 : 0;
    setting.tm_hour =
        static_cast<std::uint16_t>(read_decimal<number_size>(ini, "Periodic Back-Up:Period Hour"));
    setting.tm_min = static_cast<std::uint16_t>(
        read_decimal<number_size>(ini, "Periodic Back-Up:Period Minute"));
    setting.serverIp = static_cast<std::uint32_t>(
        read_decimal<number_size>(ini, "Periodic Back-Up:TFTP ServerIP"));
    U_SetPeriodicSetting(&setting);
}
