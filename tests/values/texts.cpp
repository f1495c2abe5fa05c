#include "values/texts.hpp"

namespace oru::test {
namespace {

using std::string;
using Texts = std::vector<string>;

void addFormats(Texts &all)
{
    for (const char *text :
         {"%s", "%n", "%s%s%s%s%s%s%s%s", "%n%n%n%n", "%x.%x.%x", "%1$s", "%999999d", "%*.*f",
          "%lln", "%hhn%hhn", "100%", "%", "%%", "%%n", "%.1024d", "%m", "%2$n", "%Lf", "%ls"})
        all.emplace_back(text);
}

void addShell(Texts &all)
{
    for (const char *text : {"$(touch pwned)",
                             "`touch pwned`",
                             "; touch pwned",
                             "| touch pwned",
                             "& touch pwned &",
                             "&& touch pwned",
                             "> pwned",
                             ">> /dev/full",
                             "< /etc/passwd",
                             "$HOME",
                             "${IFS}",
                             "~root",
                             "*",
                             "?",
                             "[a-z]*",
                             "{a,b}",
                             "!!",
                             "-rf",
                             "--help",
                             "--",
                             "-",
                             "$((1+1))",
                             "\\$(id)",
                             "';id;'",
                             "\";id;\"",
                             "a'b",
                             "a\"b",
                             "'",
                             "\"",
                             "\"\"",
                             "''",
                             "\\",
                             "\\\\",
                             "\\\"",
                             "\"unfinished",
                             "finished\"",
                             "\"whole\"",
                             "\\x41",
                             "\\n",
                             "\\x",
                             "\\xZZ",
                             "\\u0041",
                             "a\\",
                             "\"a\\\"",
                             "\\0",
                             "\\x00"})
        all.emplace_back(text);
}

void addFileSyntax(Texts &all)
{
    for (const char *text : {"#",
                             "# a comment",
                             "a#b",
                             "=",
                             "a=b",
                             "==",
                             "key=value",
                             "\nbss0.wpaEnabled=true",
                             "x\nbss0.openAccessEnabled=false",
                             "x\nbss1.ssId=\"taken over\"",
                             "x\n\n\n",
                             "x\r\nradio0.adminStatus=0",
                             "x\rradio0.txPower=99",
                             "\n",
                             "\r",
                             "\r\n",
                             "a\nb",
                             "a\rb",
                             "\nlocalMacAcl=0\n",
                             "x\"\nradiusSecret.1=\"known",
                             "\"\nbss0.wpaPsk=\"letmein12",
                             "x\vkey=value",
                             "x\fkey=value",
                             "x\x85key=value",
                             "x\xe2\x80\xa8key=value",
                             "[section]",
                             "key: value",
                             "; comment",
                             "// comment",
                             "<xml/>",
                             "{\"json\": 1}",
                             "\",\"injected\":\"",
                             "' OR 1=1 --",
                             "%(name)s",
                             "${jndi:x}",
                             "bss0.ssId=",
                             "radio%d.txPower=1"})
        all.emplace_back(text);
}

void addBlanks(Texts &all)
{
    for (const char *text :
         {"", " ", "  ", "\t", " leading", "trailing ", "\tleading", "trailing\t", " both ",
          "in  side", "a\tb", "\xc2\xa0nbsp\xc2\xa0", "\xe3\x80\x80", "\xe2\x80\x8bzero",
          "\xef\xbb\xbf"
          "bom"})
        all.emplace_back(text);
}

void addTerminal(Texts &all)
{
    for (const char *text :
         {"\x1b[31mred", "\x1b[2J\x1b[H", "\x1b]0;title\x07", "\x1b]52;c;cm0gLXJm\x07",
          "\x1bP+q\x1b\\", "\x1b[6n",
          "\x1b"
          "c",
          "\x9b"
          "31m",
          "\xc2\x9b"
          "31m",
          "\x08\x08\x08over", "a\x7f", "\x1b[?1049h", "\x1b]8;;http://a\x1b\\b", "\x0e\x0f",
          "\xe2\x80\xae"
          "evil",
          "\x1b#8", "a\x1b"})
        all.emplace_back(text);
}

void addEncodings(Texts &all)
{
    for (const char *text : {"Gr\xc3\xbc\xc3\x9f"
                             "e",
                             "\xe6\x97\xa5\xe6\x9c\xac",
                             "\xf0\x9f\x93\xb6",
                             "\xc3",
                             "\xe2\x82",
                             "\xf0\x9f\x93",
                             "\xc3\x28",
                             "\xa0\xa1",
                             "\xc0\x80",
                             "\xc0\xaf",
                             "\xe0\x80\xaf",
                             "\xed\xa0\x80",
                             "\xed\xa0\xbd\xed\xb3\xb6",
                             "\xf4\x90\x80\x80",
                             "\xf8\x88\x80\x80\x80",
                             "\xfe\xff",
                             "\xff\xfe",
                             "\xff\xff\xff\xff",
                             "e\xcc\x81\xcc\x81\xcc\x81\xcc\x81",
                             "12345678901234567890123456789012\xc3\xbc",
                             "1234567890123456789012345678901\xc3\xbc"})
        all.emplace_back(text);
    all.emplace_back("\xff\xfe"
                     "a\0b\0",
                     6);
    all.emplace_back("\0a\0b", 4);
}

void addPaths(Texts &all)
{
    for (const char *text : {"../../etc/passwd", "/etc/shadow", "....//....//", "/dev/zero",
                             "file:///etc/passwd", "/proc/self/mem", "..", ".", "/", "//", "a/../b",
                             "\\\\host\\share", "C:\\", "%2e%2e%2f", "/var/1x.conf", "..\\..\\"})
        all.emplace_back(text);
}

void addNumbers(Texts &all)
{
    for (const char *text : {"0",
                             "-1",
                             "+1",
                             "1",
                             "-0",
                             "00",
                             "007",
                             "0x10",
                             "1e3",
                             "1.5",
                             "1,5",
                             " 1",
                             "1 ",
                             "1a",
                             "2147483647",
                             "2147483648",
                             "-2147483648",
                             "-2147483649",
                             "4294967295",
                             "4294967296",
                             "9223372036854775807",
                             "9223372036854775808",
                             "18446744073709551616",
                             "--1",
                             "+-1",
                             "NaN",
                             "inf",
                             "true",
                             "false",
                             "null",
                             "None",
                             "on",
                             "1 2 5.5 11",
                             "1 2 5.5 11 %n",
                             "02:04:0B:16",
                             "00:11:22:33:44:55",
                             "00:11:22:33:44:5g",
                             "0:1:2:3:4:5",
                             "0011223344556677",
                             "0123456789",
                             "0123456789abcdef0123456789",
                             "00112233445566778899aabbccddeeff",
                             "12345670",
                             "12345678",
                             "US",
                             "wlan0",
                             "eth0"})
        all.emplace_back(text);
}

void addSizes(Texts &all)
{
    for (const size_t size :
         {8,   9,   10,  17,  18,   26,   31,   32,   33,   63,   64,    65,    66,
          127, 128, 255, 256, 1900, 1901, 4095, 4096, 8191, 8192, 16384, 65535, 65536})
        all.emplace_back(size, 'A');
    all.emplace_back(64, 'f');
    all.emplace_back(65536, '%');
    all.emplace_back(65536, '"');
    all.emplace_back(65536, '\n');
    all.emplace_back(65536, '\x1b');
    all.emplace_back(65536, '\xff');
    all.emplace_back("12345678\0hidden", 15);
    all.emplace_back("before\0after", 12);
    all.emplace_back("\0", 1);
}

/// Each control byte, and bytes of the upper half, between letters.
void addBytes(Texts &all)
{
    for (int byte = 1; byte < 32; ++byte)
        all.push_back("ab" + string(1, static_cast<char>(byte)) + "cdefgh");
    for (int byte = 127; byte < 256; byte += 9)
        all.push_back("ab" + string(1, static_cast<char>(byte)) + "cdefgh");
}

/// The bytes of the UTF-8 character at the front, 0 when it is none, and its number.
size_t utf8Length(const string &text, size_t at, unsigned long &number)
{
    const auto byte = [&](size_t i) -> unsigned {
        return at + i < text.size() ? static_cast<unsigned char>(text[at + i]) : 0;
    };
    const unsigned first = byte(0);
    const size_t length = first < 0x80   ? 1
                          : first < 0xc2 ? 0
                          : first < 0xe0 ? 2
                          : first < 0xf0 ? 3
                          : first < 0xf5 ? 4
                                         : 0;
    number = length < 2 ? first : first & (0x7fU >> length);
    for (size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xc0U) != 0x80) return 0;
        number = number << 6 | (byte(i) & 0x3fU);
    }
    const unsigned long least[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool wrong =
        number < least[length] || number > 0x10ffff || (number >= 0xd800 && number < 0xe000);
    return wrong ? 0 : length;
}

} // namespace

const Texts &hostileTexts()
{
    static const Texts texts = [] {
        Texts all;
        addFormats(all);
        addShell(all);
        addFileSyntax(all);
        addBlanks(all);
        addTerminal(all);
        addEncodings(all);
        addPaths(all);
        addNumbers(all);
        addSizes(all);
        addBytes(all);
        return all;
    }();
    return texts;
}

Texts sampledTexts(size_t n)
{
    if (std::getenv("ORU_TORTURE") != nullptr) return hostileTexts();
    Texts some;
    for (size_t i = 0; i < hostileTexts().size(); i += n) some.push_back(hostileTexts()[i]);
    return some;
}

bool isHarmlessOutput(const string &text)
{
    for (size_t at = 0; at < text.size();) {
        unsigned long number = 0;
        const size_t length = utf8Length(text, at, number);
        const bool control = number < 0x20 || (number >= 0x7f && number < 0xa0);
        if (length == 0 || (control && number != '\n')) return false;
        at += length;
    }
    return true;
}

} // namespace oru::test
