// How values are read back from a document.

#include "frame/document.h"
#include "frame/ini_dialect.h"
#include "frame/report.h"

#include "tests/support/switch_test.h"

#include <memory>

class Document : public SwitchTest {
protected:
    bool load(const std::string& content) {
        write_file(path, content);
        document.reset(load_document(path.c_str()));
        ini = document.get();
        return ini != nullptr;
    }

    const std::string path = testing::TempDir() + "document_test.ini";
    std::unique_ptr<dictionary, void (*)(dictionary*)> document = {nullptr, iniparser_freedict};
    const dictionary* ini = nullptr;
};

TEST_F(Document, Numbers) {
    ASSERT_TRUE(load("[s]\nhex=0x1f\noctal=010\ntail=12abc\nnegative = -1 ;\nempty=\n"
                     "quoted = \" 7\" ;\nword=abc\n[s:section]\n"));
    const std::pair<const char*, int> expected[] = {
        {"s:hex", 31},   {"S:OCTAL", 8}, {"s:tail", 12},  {"s:negative", -1}, {"s:empty", 0},
        {"s:quoted", 7}, {"s:word", 0},  {"s:absent", 9}, {"s:section", 9},   {"s", 9}};
    for (const auto& [entry, value] : expected) {
        EXPECT_EQ(read_int(ini, entry, 9), value) << entry;
    }
}

TEST_F(Document, DecimalNumbers) {
    const std::pair<const char*, int> expected[] = {{" +12abc", 12},
                                                    {"010", 10},
                                                    {"0x1f", 0},
                                                    {"", 0},
                                                    {"-2147483648", INT32_MIN},
                                                    {"3232238080", -1062729216},
                                                    {"4294967295", -1},
                                                    {"4294967298", -1},
                                                    {"99999999999999999999", -1},
                                                    {"-99999999999", INT32_MIN}};
    for (const auto& [text, value] : expected) {
        EXPECT_EQ(decimal_value(text), value) << text;
    }
}

TEST_F(Document, LineLength) {
    const std::string line_of_1022 = "key=" + std::string(1018, 'x');
    for (const char* end : {"\n", ""}) {
        EXPECT_TRUE(load("[s]\n" + line_of_1022 + end));
        EXPECT_EQ(strlen(read_string(ini, "s:key", "")), 1018U);
        EXPECT_FALSE(load("[s]\n" + line_of_1022 + "x" + end));
    }
}

TEST_F(Document, Size) {
    const std::string comment(max_document_size - 1, '#');
    std::string lines = comment;
    for (std::size_t i = 1000; i < lines.size(); i += 1000) {
        lines[i] = '\n';
    }
    EXPECT_TRUE(load(lines + "\n"));
    EXPECT_FALSE(load(lines + "\n\n"));
    EXPECT_TRUE(load(lines.substr(0, 4097))); // read in blocks of 4096 bytes
}

// Lines that iniparser 4.2 and later would read differently from 4.1, and the entry
// that each leaves, as restore prints it.
const std::pair<std::string, const char*> nasty_lines[] = {
    {R"(k = "a\b" ;)", R"([s:k]=[a\b])"},
    {R"(k = "a\"b" ;)", R"([s:k]=[a\])"},
    {R"(k = "a\" ;)", R"([s:k]=[a\])"},
    {R"(k = "a\\b" ;)", R"([s:k]=[a\\b])"},
    {R"(k = 'a"b\' ; 'x)", R"([s:k]=[a"b\])"},
    {R"(k = a\b "c" ; d)", R"([s:k]=[a\b "c"])"},
    {R"(k = "no end\t)", R"([s:k]=[no end\t])"},
    {R"(k = "v" ; \ comment)", "[s:k]=[v]"},
    {R"(# k = "a\b")", ""},
    {"\nk = \"a\\b\"", R"([s:k]=[a\b])"},
    {R"(k = "")", "[s:k]=[]"},
    {R"(k = "" ; "x)", "[s:k]=[]"},
    {R"(k = ""x\y" ; z)", R"([s:k]=[""x\y"])"},
    {R"(k = """)", R"([s:k]=["""])"},
    {R"(k = ''')", "[s:k]=[''']"},
    {R"(k = ")", R"([s:k]=["])"},
    {R"([a\b] c]d])", R"([a\b]=UNDEF)"},
    {" [ a ] ", "[a]=UNDEF"},
    {"k = \"a\\ \n\\b\"", R"([s:k]=[a\b])"},      // joined lines
    {"k = \"a\\\\\nb\\c\"", R"([s:k]=[a\b\c])"},  // only the last backslash joins
    {"k = \"a\\\\\n\nb\\c\"", R"([s:k]=[ab\c])"}, // an empty line joins on
    {"k = \\\n\"a\\b\"", R"([s:k]=[a\b])"},
};

TEST_F(Document, ReadsTheSameWithEveryIniparser) {
    const auto entries = [&] {
        char* text = nullptr;
        std::size_t size = 0;
        FILE* stream = open_memstream(&text, &size);
        iniparser_dump(ini, stream);
        fclose(stream);
        std::string dump(text, size);
        free(text);
        return dump;
    };
    for (const auto& [lines, entry] : nasty_lines) {
        std::string text = "[s]\n" + lines + "\n";
        ASSERT_TRUE(load(text)) << lines;
        const std::string read = entries();
        EXPECT_EQ(read, std::string("[s]=UNDEF\n") + entry + (*entry != '\0' ? "\n" : ""));

        // A library that does not need the disguise reads the same through it.
        Disguise bytes;
        ASSERT_TRUE(disguise(text.data(), text.size(), bytes));
        ASSERT_TRUE(load(text)) << lines;
        reveal(ini, bytes);
        EXPECT_EQ(entries(), read) << lines;
    }
}

TEST_F(Document, DisguisesWhatReadingsDifferIn) {
    std::string text =
        "[a\\] b]\nk = \"\\ \" ; \\]\nk = '\\\\'\nk = \"\"x\nk = '''\n;=\"\\\"\n#=\"\\\"";
    Disguise bytes;
    ASSERT_TRUE(disguise(text.data(), text.size(), bytes));
    EXPECT_EQ(text, "[a\\]   \nk = \"\xff \" ; \\]\nk = '\xff\xff'\nk = \xfe\"x\nk = \xfd''\n"
                    ";=\"\\\"\n#=\"\\\"");
    text = std::string("k\\\n\0\n=\"\\\"", 9); // joined over a line that begins with a zero byte
    ASSERT_TRUE(disguise(text.data(), text.size(), bytes));
    EXPECT_EQ(text.substr(5), "=\"\xff\"");
    text = "k=\"\\" + std::string(1018, 'x') + "\n"; // as long as a line may be
    ASSERT_TRUE(disguise(text.data(), text.size(), bytes));
    EXPECT_EQ(text[3], '\xff');
}

TEST_F(Document, TakesUnusedBytesForADisguise) {
    std::string text;
    for (int byte = 128; byte < 254; ++byte) {
        text += static_cast<char>(byte);
    }
    Disguise bytes;
    EXPECT_FALSE(disguise(text.data(), text.size(), bytes));
    text.pop_back();
    ASSERT_TRUE(disguise(text.data(), text.size(), bytes));
    EXPECT_EQ(text.find_first_of({bytes.backslash, bytes.double_quote, bytes.single_quote}),
              std::string::npos);

    // The library refuses the document at a line that is too long.
    const std::string refused = std::string(1024, 'x') + "\nk = \"a\\b\"\n";
    text = refused;
    ASSERT_TRUE(disguise(text.data(), text.size(), bytes));
    EXPECT_EQ(text, refused);
}

TEST_F(Document, VerdictsAreInTheLowEightBits) {
    for (const auto& [verdict, accepted] :
         {std::pair(1, true), {-1, true}, {257, true}, {0, false}, {256, false}, {-65536, false}}) {
        EXPECT_EQ(is_accepted(verdict), accepted) << verdict;
    }
}
