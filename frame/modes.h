// The three modes of a run: backup, check and restore.
//
// Each driver opens the files of its run, has the sections handled in order, and
// closes the files.
#pragma once

inline constexpr char backup_path[] = "/tmp/config_backup.ini";
inline constexpr char restore_path[] = "/tmp/config_restore.ini";
inline constexpr char report_path[] = "/tmp/config_ini_error";

// Backup: writes the document to backup_path. Leaves the report empty, or with 210
// if the document cannot be created. If the report cannot be opened, nothing is
// written, and a message on standard output says so.
// A new document is readable and writable by its owner only, because it holds
// passwords in plain text; an existing one keeps its permissions.
void create_config_ini_file();

// Check: 0 if the document can be loaded and every section passes. Otherwise -1,
// and the report holds the code of the first fault; if the report cannot be
// opened, a message on standard error says so.
int check_config_ini_file(const char* ini_name);

// Restore: 0 if the document can be loaded, whatever the device makes of it.
// Otherwise -1, and nothing is applied. Prints the loaded document on standard error,
// secrets in plain text included. Does not touch the report. Does not apply what
// gKeepConfig names.
int parse_config_ini_file(const char* ini_name);
