#include "fuzz/fuzz.h"

#include "platform/simulator/gate.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>

namespace fuzz {

namespace {

// A file with a path, in memory.
class MemoryFile {
public:
    MemoryFile() : file_(memfd_create("fuzz", 0)), stream_(fdopen(file_, "w+")) {}
    ~MemoryFile() { fclose(stream_); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    FILE* stream() { return stream_; }
    std::string path() const { return "/proc/self/fd/" + std::to_string(file_); }

    std::string content() {
        fflush(stream_);
        std::string text(static_cast<std::size_t>(lseek(file_, 0, SEEK_END)), '\0');
        if (pread(file_, text.data(), text.size(), 0) != static_cast<ssize_t>(text.size())) {
            abort();
        }
        return text;
    }

private:
    int file_;
    FILE* stream_;
};

int no_message(const char*, ...) {
    return 0;
}

} // namespace

std::uint8_t Bytes::next() {
    if (size_ == 0) {
        return 0;
    }
    --size_;
    return *data_++;
}

// A backslash ends the text, unless another one follows it.
std::string Bytes::text(std::size_t longest) {
    std::string text;
    while (text.size() < longest && size_ != 0) {
        const std::uint8_t byte = next();
        if (byte == '\\' && size_ != 0 && next() != '\\') {
            break;
        }
        text += static_cast<char>(byte);
    }
    return text;
}

void Bytes::fill(std::uint8_t* bytes, std::size_t count) {
    for (std::size_t i = 0; i < count && size_ != 0; ++i) {
        bytes[i] = next();
    }
}

dictionary* load(const std::string& document) {
    iniparser_set_error_callback(no_message);
    MemoryFile file;
    fwrite(document.data(), 1, document.size(), file.stream());
    fflush(file.stream());
    return load_document(file.path().c_str());
}

bool check(const dictionary* ini) {
    MemoryFile report;
    simulator::journal().clear();
    const bool passes = check_sections(ini, report.stream()) == 0;
    require(passes == report.content().empty(), "status and report differ", report.content());
    for (const simulator::Call& call : simulator::journal()) {
        require(call.access == simulator::Access::read, "check changes the device", call.text);
    }
    return passes;
}

std::string backup() {
    MemoryFile document;
    write_sections(document.stream());
    std::string text = document.content();
    constexpr char lines[] = "\nDate       = \"01.01.2026\" ;\nTime       = \"00:00:00\" ;";
    const std::size_t clock = text.find("\nDate       = ");
    return clock == std::string::npos ? text : text.erase(clock, sizeof lines - 1);
}

void restore(const std::string& document) {
    dictionary* ini = load(document);
    restore_sections(ini, 0);
    iniparser_freedict(ini);
}

bool holds_what_no_document_can(const dictionary* ini) {
    for (int i = 0; i < static_cast<int>(ini->size); ++i) {
        const char* value = ini->key[i] != nullptr ? ini->val[i] : nullptr;
        if (value != nullptr && strchr(value, '"') != nullptr) {
            return true;
        }
    }
    return false;
}

void require(bool condition, const char* message, const std::string& document) {
    if (!condition) {
        fprintf(stderr, "%s:\n%s\n", message, document.c_str());
        abort();
    }
}

} // namespace fuzz
