// "system information", "system settings" and "network settings": the device and
// software that made the document, the device name, and the IPv4 addresses of the
// management interface.
#pragma once

#include "frame/document.h"

void backup_ini_system_information(FILE* ini_file);
void backup_ini_system_settings(FILE* ini_file);
void backup_ini_network_settings(FILE* ini_file);

int check_ini_system_information(const dictionary* ini, FILE* error_file);
int check_ini_system_settings(const dictionary* ini, FILE* error_file);
int check_ini_network_settings(const dictionary* ini, FILE* error_file);

void restore_ini_system_settings(const dictionary* ini);
void restore_ini_network_settings(const dictionary* ini);
