// "lldp setting", "port mirror setting", "https setting" and "auto default
// setting": services that are on or off, and port mirroring with its two ports.
#pragma once

#include "frame/document.h"

void backup_ini_lldp_settings(FILE* ini_file);
void backup_ini_port_mirror_settings(FILE* ini_file);
void backup_ini_https_settings(FILE* ini_file);
void backup_ini_adefault_settings(FILE* ini_file);

int check_ini_lldp(const dictionary* ini, FILE* error_file);
int check_ini_port_mirror(const dictionary* ini, FILE* error_file);
int check_ini_https(const dictionary* ini, FILE* error_file);
int check_ini_adefault(const dictionary* ini, FILE* error_file);

void restore_ini_lldp(const dictionary* ini);
void restore_ini_port_mirror(const dictionary* ini);
void restore_ini_https(const dictionary* ini);
void restore_ini_adefault(const dictionary* ini);
