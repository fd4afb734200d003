# Makes the table of report codes from the manual page: one line a code, with
# its number, its name, the section of the document that it is about ("-" for
# the document as a whole), and a sentence, separated by tabs.
function finish() {
    if (sentence != "") {
        print code, name, section, sentence
    }
    code = sentence = ""
}
BEGIN { OFS = "\t" }
/^\.It Sy [0-9]+ Dv / {
    finish()
    code = $3
    name = $5
    section = "-"
    next
}
code == "" { next }
/^\.Bq / { section = substr($0, 5); next }
/^\.El/ { finish(); next }
/^\.|\\/ { # the table has no markup
    print "switch-config.8:" NR ": only plain text in the description of a code" >"/dev/stderr"
    exit 1
}
{ sentence = sentence (sentence == "" ? "" : " ") $0 }
