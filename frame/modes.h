// The three modes of a run: backup, check and restore.
//
// Each driver opens what its run needs, has the sections handled in their
// order, and closes it again.
#pragma once

#include <cstdint>

inline constexpr char backup_path[] = "/tmp/config_backup.ini";
inline constexpr char restore_path[] = "/tmp/config_restore.ini";
inline constexpr char report_path[] = "/tmp/config_ini_error";

// Which of its own settings the device keeps in restore: a mask of
// KEEP_CONFIG_* bits, other bits are without effect. Set once by main.
extern std::uint32_t gKeepConfig;

// Backup: writes the document to backup_path. The report is empty afterwards,
// or holds 210 when the document cannot be created; when not even the report can
// be, a message on standard output says so. A document that is created new is
// readable and writable by its owner only, since it holds passwords in plain
// text; one that exists keeps its permissions.
void create_config_ini_file();

// Check: 0 when the document can be loaded and every section passes; else -1,
// with the code of the first fault in the report, or with a message on standard
// error when the report cannot be opened.
int check_config_ini_file(const char* ini_name);

// Restore: 0 when the document could be loaded, whatever the device made of
// it; else -1, and nothing has been applied. The loaded document is printed
// on standard error. The report is left alone.
int parse_config_ini_file(const char* ini_name);
