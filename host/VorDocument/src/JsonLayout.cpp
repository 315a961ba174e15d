// Writes JSON values so that a small object or list takes one line and a large one a line per item.

#include "JsonLayout.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>

#include <cmath>

namespace VorSystem
{

namespace
{

constexpr int kLineWidth = 120;
constexpr double kWholeUpTo = 9007199254740992.0; // every whole number up to here is a double

QByteArray numberText(double number)
{
    if (!std::isfinite(number))
        return QByteArrayLiteral("null"); // no reader takes it for a number
    if (std::trunc(number) == number && std::abs(number) <= kWholeUpTo)
        return QByteArray::number(static_cast<qint64>(number));
    return QByteArray::number(number, 'g', QLocale::FloatingPointShortest);
}

QByteArray stringText(const QString &text)
{
    // Qt's own escapes: the text of a list of one, without the brackets.
    const QByteArray list = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return list.mid(1, list.size() - 2);
}

class Layout
{
public:
    QByteArray take() { return mText; }

    void write(const QJsonValue &value, int depth)
    {
        const int before = mText.size();
        if (writeOnLine(value, before + kLineWidth - 2 * depth))
            return;
        mText.truncate(before);
        if (value.isArray())
            writeArray(value.toArray(), depth);
        else
            writeObject(value.toObject(), depth);
    }

private:
    // False, with a part of the text written, when it grows past the end. Scalars always fit.
    bool writeOnLine(const QJsonValue &value, int end)
    {
        const char *separator = "";
        switch (value.type()) {
        case QJsonValue::Array:
            mText += '[';
            for (const QJsonValue item : value.toArray()) {
                mText += separator;
                if (mText.size() > end || !writeOnLine(item, end))
                    return false;
                separator = ", ";
            }
            mText += ']';
            return mText.size() <= end;
        case QJsonValue::Object: {
            const QJsonObject object = value.toObject();
            mText += '{';
            for (auto member = object.begin(); member != object.end(); ++member) {
                mText += separator;
                mText += stringText(member.key()) + ": ";
                if (mText.size() > end || !writeOnLine(member.value(), end))
                    return false;
                separator = ", ";
            }
            mText += '}';
            return mText.size() <= end;
        }
        case QJsonValue::Double: mText += numberText(value.toDouble()); break;
        case QJsonValue::String: mText += stringText(value.toString()); break;
        case QJsonValue::Bool: mText += value.toBool() ? "true" : "false"; break;
        case QJsonValue::Null:
        case QJsonValue::Undefined: mText += "null"; break;
        }
        return true;
    }

    void newLine(int depth) { mText += '\n' + QByteArray(2 * depth, ' '); }

    void writeArray(const QJsonArray &array, int depth)
    {
        mText += '[';
        const char *separator = "";
        for (const QJsonValue item : array) {
            mText += separator;
            newLine(depth + 1);
            write(item, depth + 1);
            separator = ",";
        }
        newLine(depth);
        mText += ']';
    }

    void writeObject(const QJsonObject &object, int depth)
    {
        mText += '{';
        const char *separator = "";
        for (auto member = object.begin(); member != object.end(); ++member) {
            mText += separator;
            newLine(depth + 1);
            mText += stringText(member.key()) + ": ";
            write(member.value(), depth + 1);
            separator = ",";
        }
        newLine(depth);
        mText += '}';
    }

    QByteArray mText;
};

} // namespace

QByteArray jsonLayout(const QJsonValue &value)
{
    Layout layout;
    layout.write(value, 0);
    return layout.take() + '\n';
}

} // namespace VorSystem
