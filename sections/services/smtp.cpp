// The document holds the password in plain text, and user name and password even
// while authentication is off.

#include "sections/services/smtp.h"

#include "frame/text.h"
#include "platform/include/smtp.h"

namespace {

// The device's fields, terminator included.
constexpr std::uint8_t text_size = 32;
constexpr std::size_t password_size = 16;

constexpr std::size_t number_size = 64; // of the texts that numbers are read from

// A text of the device may fill its field: one byte more terminates it.
using StoredText = Text<text_size + 1>;

void write_texts(FILE* ini_file) {
    StoredText server;
    U_FlshSmtpGetServer(server.bytes(), text_size);
    fprintf(ini_file, "SMTP server             = \"%s\" ;\n", server.chars);
    StoredText sender;
    U_FlshSmtpGetSendAdd(sender.bytes(), text_size);
    fprintf(ini_file, "sender address          = \"%s\" ;\n", sender.chars);
    StoredText subject;
    U_FlshSmtpGetSubject(subject.bytes(), text_size);
    fprintf(ini_file, "subject of mail         = \"%s\" ;\n", subject.chars);
}

// A flag that cannot be read is written as on.
void write_login(FILE* ini_file) {
    char authentication = 1;
    char tls = 1;
    StoredText username;
    Secret<password_size + 1> password;
    U_FlshSmtpGetUnamePwd(&authentication, username.bytes(), password.bytes());
    U_FlshSmtpGetTLS(&tls);
    fprintf(ini_file, "authentication          = \"%d\" ;\n",
            static_cast<std::int8_t>(authentication));
    fprintf(ini_file, "tls/ssl                 = \"%d\" ;\n", static_cast<std::int8_t>(tls));
    fprintf(ini_file, "username                = \"%s\" ;\n", username.chars);
    fprintf(ini_file, "password                = \"%s\" ;\n", password.chars);
}

void write_recipients(FILE* ini_file) {
    StoredText recipients[4];
    U_FlshSmtpGetRecAdd(recipients[0].bytes(), recipients[1].bytes(), recipients[2].bytes(),
                        recipients[3].bytes());
    fprintf(ini_file, "mail recipient1         = \"%s\" ;\n", recipients[0].chars);
    fprintf(ini_file, "mail recipient2         = \"%s\" ;\n", recipients[1].chars);
    fprintf(ini_file, "mail recipient3         = \"%s\" ;\n", recipients[2].chars);
    fprintf(ini_file, "mail recipient4         = \"%s\" ;\n", recipients[3].chars);
}

} // namespace

void backup_ini_smtp_settings(FILE* ini_file) {
    write_section_line(ini_file, "smtp setting");
    write_texts(ini_file);
    write_login(ini_file);
    write_recipients(ini_file);
}

// Reads everything before it stores anything. U_SysSetRelayConfig comes last.
void restore_ini_smtp(const dictionary* ini) {
    auto server = read_text<text_size>(ini, "smtp setting:SMTP server");
    auto sender = read_text<text_size>(ini, "smtp setting:sender address");
    auto subject = read_text<text_size>(ini, "smtp setting:subject of mail");
    const int authentication = read_decimal<number_size>(ini, "smtp setting:authentication");
    const int tls = read_decimal<number_size>(ini, "smtp setting:tls/ssl");
    auto username = read_text<text_size>(ini, "smtp setting:username");
    Secret<password_size> password;
    copy_text(password.chars, read_string(ini, "smtp setting:password", ""));
    auto recipient1 = read_text<text_size>(ini, "smtp setting:mail recipient1");
    auto recipient2 = read_text<text_size>(ini, "smtp setting:mail recipient2");
    auto recipient3 = read_text<text_size>(ini, "smtp setting:mail recipient3");
    auto recipient4 = read_text<text_size>(ini, "smtp setting:mail recipient4");

    U_FlshSmtpSetServer(server.bytes());
    U_FlshSmtpSetSendAdd(sender.bytes());
    U_FlshSmtpSetSubject(subject.bytes());
    U_FlshSmtpSetUnamePwd(static_cast<char>(authentication), username.bytes(), password.bytes());
    U_FlshSmtpSetTLS(static_cast<char>(tls));
    U_FlshSmtpSetRecAdd(recipient1.bytes(), recipient2.bytes(), recipient3.bytes(),
                        recipient4.bytes());
    U_SysSetRelayConfig();
}
