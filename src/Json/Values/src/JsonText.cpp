// The text form of containers, and the debug stream operators that print it.
// It resembles JSON but cannot be read back: a key is written without quotation marks, whatever is in it.

#include "JsonText.h"
#include "JsonNumber.h"
#include "JsonWalk.h"

#include <QDebug>
#include <VorJson/XJsonArray.h>
#include <VorJson/XJsonObject.h>
#include <cmath>
#include <vector>

namespace VorSystem
{

namespace
{

constexpr int kBlanksPerLevel = 4;
constexpr int kDigits = 17; // enough to tell any two doubles apart

class TextWriter
{
public:
    explicit TextWriter(XJsonFormat format) : mIsIndented(format == XJsonFormat::Indented) {}

    QByteArray write(const QJsonValue &container);

private:
    void writeNext();
    void open(const QJsonValue &container);
    void close();
    void finishItem(bool isMember, bool isLast);
    void writeScalar(const QJsonValue &value);
    void writeEscaped(const QString &text);
    void indent() { mText.append(mIsIndented ? kBlanksPerLevel * static_cast<int>(mOpen.size()) : 0, ' '); }
    void breakLine() { mText.append(mIsIndented ? "\n" : ""); }

    const bool mIsIndented;
    QByteArray mText;
    std::vector<JsonCursor> mOpen; // outermost first
};

QByteArray TextWriter::write(const QJsonValue &container)
{
    open(container);
    while (!mOpen.empty()) {
        if (mOpen.back().atEnd())
            close();
        else
            writeNext();
    }
    return mText;
}

void TextWriter::writeNext()
{
    indent();
    JsonCursor &cursor = mOpen.back();
    if (cursor.isObject()) {
        writeEscaped(cursor.key());
        mText.append(mIsIndented ? ": " : ":");
    }
    const QJsonValue value = cursor.value();
    cursor.advance();
    if (JsonCursor::isContainer(value)) {
        open(value); // its closing finishes the item
    } else {
        const bool isLast = cursor.atEnd();
        writeScalar(value);
        finishItem(cursor.isObject(), isLast);
    }
}

void TextWriter::open(const QJsonValue &container)
{
    mOpen.emplace_back(container);
    mText.append(mOpen.back().isObject() ? '{' : '[');
    breakLine();
}

void TextWriter::close()
{
    const char bracket = mOpen.back().isObject() ? '}' : ']';
    mOpen.pop_back();
    indent();
    mText.append(bracket);
    if (mOpen.empty())
        breakLine();
    else
        finishItem(mOpen.back().isObject(), mOpen.back().atEnd());
}

void TextWriter::finishItem(bool isMember, bool isLast)
{
    // Deliberate: the last member of an object too is followed by a comma, the last value of an array is not.
    if (isMember || !isLast)
        mText.append(',');
    breakLine();
}

void TextWriter::writeScalar(const QJsonValue &value)
{
    if (value.isBool()) {
        mText.append(value.toBool() ? 'T' : 'F');
    } else if (value.isString()) {
        mText.append('"');
        writeEscaped(value.toString());
        mText.append('"');
    } else if (const double number = JsonNumber::of(value); value.isDouble() && std::isfinite(number)) {
        mText.append(QByteArray::number(number, 'g', kDigits));
    } else {
        mText.append("null");
    }
}

void TextWriter::writeEscaped(const QString &text)
{
    static const char hexadecimal[] = "0123456789abcdef";
    for (const char byte : text.toUtf8()) {
        switch (byte) {
        case '"': mText.append("\\\""); continue;
        case '\\': mText.append("\\\\"); continue;
        case '\b': mText.append("\\b"); continue;
        case '\t': mText.append("\\t"); continue;
        case '\n': mText.append("\\n"); continue;
        case '\f': mText.append("\\f"); continue;
        case '\r': mText.append("\\r"); continue;
        default: break;
        }
        const auto code = static_cast<unsigned char>(byte);
        if (code < 0x20)
            mText.append("\\u00").append(hexadecimal[code >> 4]).append(hexadecimal[code & 0xf]);
        else
            mText.append(byte);
    }
}

} // namespace

QByteArray JsonText::of(const QJsonValue &container, XJsonFormat format)
{
    return TextWriter(format).write(container);
}

QDebug operator<<(QDebug debug, const XJsonValue &value)
{
    const QDebugStateSaver saver(debug);
    switch (value.type()) {
    case XJsonValue::Undefined: debug << "XJsonValue(undefined)"; break;
    case XJsonValue::Null: debug << "XJsonValue(null)"; break;
    case XJsonValue::Bool: debug.nospace() << "XJsonValue(bool, " << value.toBool() << ')'; break;
    case XJsonValue::Double: debug.nospace() << "XJsonValue(double, " << value.toDouble() << ')'; break;
    case XJsonValue::String: debug.nospace() << "XJsonValue(string, " << value.toString() << ')'; break;
    case XJsonValue::Array: debug.nospace() << "XJsonValue(array, " << value.toArray() << ')'; break;
    case XJsonValue::Object: debug.nospace() << "XJsonValue(object, " << value.toObject() << ')'; break;
    }
    return debug;
}

QDebug operator<<(QDebug debug, const XJsonArray &array)
{
    const QDebugStateSaver saver(debug);
    if (array.hasStorage()) // the text as characters, which a QDebug does not put into quotation marks
        debug.nospace() << "XJsonArray(" << array.toText().constData() << ')';
    else
        debug << "XJsonArray()";
    return debug;
}

QDebug operator<<(QDebug debug, const XJsonObject &object)
{
    const QDebugStateSaver saver(debug);
    if (object.hasStorage())
        debug.nospace() << "XJsonObject(" << object.toText().constData() << ')';
    else
        debug << "XJsonObject()";
    return debug;
}

} // namespace VorSystem
