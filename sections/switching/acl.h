// "Acl setting": the rules of the access control list. Check judges none of it.
#pragma once

#include "frame/document.h"

void backup_ini_acl_settings(FILE* ini_file);
void restore_ini_acl(const dictionary* ini);
