// "802.1x setting", "802.1x parameter setting" and "802.1x port setting": IEEE
// 802.1X port authentication with its RADIUS server, its timers, and the
// authorization mode of each port.
#pragma once

#include "frame/document.h"

void backup_ini_dot1x_settings(FILE* ini_file);
void backup_ini_dot1x_parameter(FILE* ini_file);
void backup_ini_dot1x_port(FILE* ini_file);

int check_ini_dot1x_settings(const dictionary* ini, FILE* error_file);
int check_ini_dot1x_parameter(const dictionary* ini, FILE* error_file);
int check_ini_dot1x_port(const dictionary* ini, FILE* error_file);

void restore_ini_dot1x_settings(const dictionary* ini);
void restore_ini_dot1x_parameter(const dictionary* ini);
void restore_ini_dot1x_port(const dictionary* ini);
