#include "KVIniSyntax_p.h"

#include <QTextCodec>

namespace {

bool IsSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

bool IsSpecial(char c)
{
    return c == '\n' || c == '\r' || c == '"' || c == ';' || c == '=' || c == '\\';
}

bool IsLineBreak(char c)
{
    return c == '\n' || c == '\r';
}

struct Line
{
    int start = 0;
    int length = 0;
    int equals = -1;
};

// The logical line from position on; false once the data is used up.
bool ReadLine(const QByteArray& data, int& position, Line& line)
{
    const int size = data.size();
    bool inQuotes = false;
    line.equals = -1;
    line.start = position;
    while (line.start < size && IsSpace(data.at(line.start)))
        ++line.start;

    int i = line.start;
    while (i < size) {
        const char ch = data.at(i++);
        if (!IsSpecial(ch))
            continue;
        if (ch == '=') {
            if (!inQuotes && line.equals == -1)
                line.equals = i - 1;
        } else if (IsLineBreak(ch)) {
            if (i == line.start + 1) {
                ++line.start;
            } else if (!inQuotes) {
                --i;
                break;
            }
        } else if (ch == '\\') {
            if (i < size) {
                const char escaped = data.at(i++);
                if (i < size && IsLineBreak(escaped) && IsLineBreak(data.at(i)) &&
                    data.at(i) != escaped)
                    ++i;
            }
        } else if (ch == '"') {
            inQuotes = !inQuotes;
        } else if (i == line.start + 1) { // a ';' that starts a comment line
            while (i < size && !IsLineBreak(data.at(i)))
                ++i;
            while (i < size && IsSpace(data.at(i)))
                ++i;
            line.start = i;
        } else if (!inQuotes) { // a ';' that ends the line
            --i;
            break;
        }
    }
    position = i;
    line.length = i - line.start;
    return line.length > 0;
}

char EscapedCharacter(char code)
{
    static const char codes[][2] = {{'a', '\a'}, {'b', '\b'},  {'f', '\f'}, {'n', '\n'},
                                    {'r', '\r'}, {'t', '\t'},  {'v', '\v'}, {'"', '"'},
                                    {'?', '?'},  {'\'', '\''}, {'\\', '\\'}};
    for (const auto& escape : codes) {
        if (code == escape[0])
            return escape[1];
    }
    return 0;
}

int Digit(char c, int base)
{
    const int value = c >= '0' && c <= '9'   ? c - '0'
                      : c >= 'a' && c <= 'f' ? c - 'a' + 10
                      : c >= 'A' && c <= 'F' ? c - 'A' + 10
                                             : -1;
    return value < base ? value : -1;
}

// The unescaping state machine of QSettings, one character class at a time.
class Unescaper
{
public:
    Unescaper(const QByteArray& data, int from, int to, bool utf8)
        : m_data(data)
        , m_i(from)
        , m_to(to)
        , m_codec(utf8 ? QTextCodec::codecForName("UTF-8") : nullptr)
    {}

    QStringList Run()
    {
        SkipSpaces();
        while (m_i < m_to) {
            const char ch = m_data.at(m_i);
            if (ch == '\\') {
                if (!Escape())
                    return Result();
            } else if (ch == '"') {
                ++m_i;
                m_quoted = true;
                m_inQuotes = !m_inQuotes;
                if (!m_inQuotes)
                    SkipSpaces();
            } else if (ch == ',' && !m_inQuotes) {
                EndElement();
                ++m_i;
                SkipSpaces();
            } else {
                Raw();
            }
        }
        if (!m_quoted)
            ChopTrailingSpaces();
        return Result();
    }

private:
    void SkipSpaces()
    {
        while (m_i < m_to && (m_data.at(m_i) == ' ' || m_data.at(m_i) == '\t'))
            ++m_i;
        m_chopLimit = m_text.size();
    }

    void ChopTrailingSpaces()
    {
        int n = m_text.size();
        while (n > m_chopLimit && (m_text.at(n - 1) == ' ' || m_text.at(n - 1) == '\t'))
            --n;
        m_text.truncate(n);
    }

    // False when the value ends inside the escape, which ends the text there.
    bool Escape()
    {
        if (++m_i >= m_to)
            return false;
        const char code = m_data.at(m_i++);
        if (const char escaped = EscapedCharacter(code)) {
            m_text += QLatin1Char(escaped);
            m_chopLimit = m_text.size();
            return true;
        }
        if (code == 'x') {
            if (m_i >= m_to)
                return false;
            if (Digit(m_data.at(m_i), 16) >= 0)
                return Number(16, 0);
        } else if (code >= '0' && code <= '7') {
            return Number(8, char16_t(code - '0'));
        } else if (IsLineBreak(code) && m_i < m_to && IsLineBreak(m_data.at(m_i)) &&
                   m_data.at(m_i) != code) {
            ++m_i;
        }
        m_chopLimit = m_text.size();
        return true;
    }

    // Digits are taken for as long as they come; the value keeps 16 bits.
    bool Number(int base, char16_t value)
    {
        int digit = 0;
        while (m_i < m_to && (digit = Digit(m_data.at(m_i), base)) >= 0) {
            value = char16_t(value * base + digit);
            ++m_i;
        }
        m_text += QChar(value);
        m_chopLimit = m_text.size();
        return m_i < m_to;
    }

    void Raw()
    {
        int j = m_i + 1;
        while (j < m_to && m_data.at(j) != '\\' && m_data.at(j) != '"' && m_data.at(j) != ',')
            ++j;
        const char* raw = m_data.constData() + m_i;
        m_text += m_codec ? m_codec->toUnicode(raw, j - m_i) : QString::fromLatin1(raw, j - m_i);
        m_i = j;
    }

    void EndElement()
    {
        if (!m_quoted)
            ChopTrailingSpaces();
        m_list.append(m_text);
        m_text.clear();
        m_quoted = false;
    }

    QStringList Result()
    {
        m_list.append(m_text);
        return m_list;
    }

    const QByteArray& m_data;
    int m_i;
    const int m_to;
    QTextCodec* const m_codec;
    int m_chopLimit = 0;
    bool m_inQuotes = false;
    bool m_quoted = false;
    QString m_text;
    QStringList m_list;
};

} // namespace

namespace KVIniSyntax {

QVector<Value> Values(const QByteArray& ini)
{
    QVector<Value> values;
    int position = ini.startsWith("\xef\xbb\xbf") ? 3 : 0;
    Line line;
    while (ReadLine(ini, position, line)) {
        if (ini.at(line.start) != '[' && line.equals >= 0)
            values.append({line.equals + 1, line.start + line.length});
    }
    return values;
}

QStringList Strings(const QByteArray& ini, Value value, bool utf8)
{
    return Unescaper(ini, value.from, value.to, utf8).Run();
}

} // namespace KVIniSyntax
