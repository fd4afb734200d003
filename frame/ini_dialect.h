// One reading of a document, whichever iniparser 4 parses it.
//
// Since 4.2 the library reads a document differently in three places:
//  - A backslash in a quoted value escapes the character after it. A document has
//    no escapes: "a\b" is three characters.
//  - A value that begins with two quotes, ""x, is empty. Before, it was not a
//    quoted value, and was read as it is.
//  - A section name ends at the last "]" of its line. Before, at the first.
// An empty section line, [], differs as well and is left as it is: the keys after it
// are never looked up.
//
// The text is disguised before such a library parses it, and the values are put
// right afterwards. Only bytes are replaced, one for one, so the library's limits,
// line numbers and messages stay as they are. With an older library a document reads
// the same, disguised and revealed or plain.
#pragma once

#include <iniparser.h>

#include <cstddef>

// The bytes used in place of others. None of them occurs in the document.
struct Disguise {
    char backslash;
    char double_quote;
    char single_quote;
};

// False when the text leaves fewer than three bytes above 127 unused, which no
// text in UTF-8 or Latin-1 does. The text is unchanged then.
bool disguise(char* text, std::size_t size, Disguise& disguise);

// Puts the hidden characters back into the values.
void reveal(const dictionary* ini, const Disguise& disguise);
