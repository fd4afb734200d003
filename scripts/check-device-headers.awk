# Reads the preprocessed headers of the contract, those in FOLDER only, and prints
# a line for each of their declarations, its columns separated by tabs:
#
#   declaration  TEXT          a type, with contract_ before each name of the contract
#   record       NAME   TAG
#   field        RECORD PATH
#   alias        NAME   TARGET  another name of a record
#   type         NAME   TEXT    any other typedef
#   constant     NAME
#   operation    NAME   TEXT    a function or variable, with contract_ before its name
#
# It knows the forms in which the headers declare; any other is an error.

BEGIN { OFS = "\t" }

/^# [0-9]+ "/ {
    file = $0
    sub(/^[^"]*"/, "", file)
    sub(/".*/, "", file)
    next
}

index(file, folder) == 1 && !/^#/ { source = source " " $0 }

# The first word of a text.
function first_word(text) {
    return match(text, /[A-Za-z_][A-Za-z_0-9]*/) ? substr(text, RSTART, RLENGTH) : ""
}

# The name that a declaration of one object ends in, before its dimensions.
function declared(text) {
    gsub(/ *\[[^]]*\]/, "", text)
    sub(/.*[^A-Za-z_0-9]/, "", text)
    return text
}

function renamed(text,    result, word) {
    while (match(text, /[A-Za-z_][A-Za-z_0-9]*/)) {
        word = substr(text, RSTART, RLENGTH)
        result = result substr(text, 1, RSTART - 1) (word in ours ? "contract_" : "") word
        text = substr(text, RSTART + RLENGTH)
    }
    return result text
}

# The part of a text up to a semicolon outside all braces; rest is what follows.
function statement(text,    i, depth, character) {
    for (i = 1; i <= length(text); ++i) {
        character = substr(text, i, 1)
        depth += (character == "{") - (character == "}")
        if (character == ";" && depth == 0) {
            rest = substr(text, i + 1)
            return trimmed(substr(text, 1, i - 1))
        }
    }
    rest = ""
    return ""
}

function trimmed(text) {
    gsub(/[ \t]+/, " ", text)
    sub(/^ /, "", text)
    sub(/ $/, "", text)
    return text
}

function braces(text) {
    sub(/^[^{]*\{/, "", text)
    sub(/\}[^}]*$/, "", text)
    return text
}

function print_fields(record, prefix, body,    member, after, path) {
    while ((member = statement(body)) != "") {
        after = rest
        path = prefix declared(member)
        print "field", record, path
        if (member ~ /\{/) {
            print_fields(record, path ".", braces(member))
        }
        body = after
    }
}

function constants(text,    count, parts, i) {
    count = split(braces(text), parts, ",")
    for (i = 1; i <= count; ++i) {
        ours[first_word(parts[i])]
        constant[++constant_count] = first_word(parts[i])
    }
}

function tag(text) {
    sub(/ *\{.*/, "", text)
    return text ~ /(struct|enum) [A-Za-z_]/ ? declared(text) : ""
}

END {
    while ((text = statement(source)) != "") {
        source = rest
        if (text !~ /^_Static_assert|^extern char contract_holds/) {
            statements[++count] = text
        }
    }
    for (i = 1; i <= count; ++i) {
        text = statements[i]
        if (text ~ /^(typedef )?enum/) {
            constants(text)
        }
        if (text ~ /^typedef /) {
            ours[declared(text)]
        }
        if (text ~ /^(typedef )?(struct|enum)/ && tag(text) != "") {
            ours[tag(text)]
        }
    }
    for (i = 1; i <= count; ++i) {
        text = statements[i]
        name = declared(text)
        if (text ~ /^typedef struct[^{]*\{/) {
            is_record[name]
            print "declaration", renamed(text)
            print "record", name, tag(text)
            print_fields(name, "", braces(text))
        } else if (text ~ /^typedef [A-Za-z_0-9]+ [A-Za-z_0-9]+$/) {
            split(text, words, " ")
            print "declaration", renamed(text)
            if (words[2] in is_record) {
                print "alias", name, words[2]
            } else {
                print "type", name, text
            }
        } else if (text ~ /^typedef (struct|enum) /) {
            print "declaration", renamed(text)
            if (text ~ /^typedef struct/) {
                print "type", name, text
            }
        } else if (text ~ /^enum/) {
            print "declaration", renamed(text)
        } else if (text ~ /^extern [A-Za-z_0-9 ]+(\[[0-9]+\])?$/) {
            sub(name "(\\[|$)", "contract_&", text)
            print "operation", name, text
        } else if (text ~ /^[A-Za-z_][A-Za-z_0-9 *]*\([^()]*\)$/) {
            name = declared(substr(text, 1, index(text, "(") - 1))
            sub(name " *\\(", "contract_&", text)
            print "operation", name, "extern " text
        } else {
            print "cannot read this declaration of the contract: " text >"/dev/stderr"
            exit 1
        }
    }
    for (i = 1; i <= constant_count; ++i) {
        print "constant", constant[i]
    }
}
