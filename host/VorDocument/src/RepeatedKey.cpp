#include "RepeatedKey.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <string_view>
#include <vector>

namespace VorSystem
{

namespace
{

using Keys = std::vector<QByteArray>;

// Past the closing quotation mark of the string that begins at start.
std::size_t endOfString(std::string_view text, std::size_t start)
{
    std::size_t at = start + 1;
    while (at < text.size() && text[at] != '"')
        at += text[at] == '\\' ? 2U : 1U;
    return std::min(at + 1, text.size());
}

bool isKey(std::string_view text, std::size_t end)
{
    const std::size_t next = text.find_first_not_of(" \t\r\n", end);
    return next != std::string_view::npos && text[next] == ':';
}

// The key that stands from start to end with its quotation marks. The same key may be spelled with escapes
// and without; a slice of the text is no copy of it.
QByteArray keyOf(std::string_view text, std::size_t start, std::size_t end)
{
    const QByteArray slice = QByteArray::fromRawData(text.data() + start, static_cast<int>(end - start));
    if (!slice.contains('\\'))
        return slice;
    const QJsonArray plain = QJsonDocument::fromJson('[' + slice + ']').array();
    return plain.isEmpty() ? slice : '"' + plain.at(0).toString().toUtf8() + '"';
}

} // namespace

QByteArray repeatedKey(const QByteArray &bytes)
{
    const std::string_view text(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    std::vector<Keys> open; // one for each object or list around the place
    for (std::size_t at = 0; at < text.size();) {
        switch (text[at]) {
        case '"': {
            const std::size_t end = endOfString(text, at);
            if (!open.empty() && isKey(text, end))
                open.back().push_back(keyOf(text, at, end));
            at = end;
            continue;
        }
        case '{':
        case '[': open.emplace_back(); break;
        case '}':
        case ']': {
            if (open.empty())
                return {};
            Keys keys = std::move(open.back());
            open.pop_back();
            std::sort(keys.begin(), keys.end());
            const auto twice = std::adjacent_find(keys.begin(), keys.end());
            if (twice != keys.end())
                return QByteArray(twice->constData(), twice->size()); // not a slice
            break;
        }
        default: break;
        }
        ++at;
    }
    return {};
}

} // namespace VorSystem
