// "auth server setting": the remote server that logins are authenticated against.
#pragma once

#include "frame/document.h"

void backup_ini_authserver_settings(FILE* ini_file);
int check_ini_authserver(const dictionary* ini, FILE* error_file);
void restore_ini_authserver(const dictionary* ini);
