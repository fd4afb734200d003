/*
 * What reading a document costs any program that uses iniparser: loads it, looks
 * up its first entries once each, and frees it.
 *
 * usage: load_and_look_up DOCUMENT NUMBER-OF-LOOK-UPS
 */
#include <iniparser/iniparser.h>

#include <stdlib.h>

/* The part that is measured. */
__attribute__((noinline)) static int load_and_look_up(const char* path, int look_ups) {
    int found = 0;
    dictionary* ini = iniparser_load(path);
    if (ini == NULL) {
        return 0;
    }
    for (int i = 0; i < look_ups; ++i) {
        found += iniparser_getstring(ini, ini->key[i], NULL) != NULL;
    }
    iniparser_freedict(ini);
    return found;
}

int main(int argc, char** argv) {
    return argc != 3 || load_and_look_up(argv[1], atoi(argv[2])) == 0;
}
