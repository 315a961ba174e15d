// Random trees and random changes, held against Qt's own classes and against plain versions.

#include "JsonTestSupport.h"
#include "JsonTrees.h"

#include <cmath>
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

using namespace VorSystem;

namespace
{

/// A number from 0 up to, not including, end; in small runs too.
int any(int end)
{
    return *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(0, end));
}

rc::Gen<QString> anyText()
{
    const auto character = rc::gen::weightedOneOf<char16_t>({{8, rc::gen::inRange<char16_t>(0x61, 0x67)},
                                                             {1, rc::gen::inRange<char16_t>(0, 0x100)},
                                                             {1, rc::gen::arbitrary<char16_t>()}});
    return rc::gen::map(rc::gen::container<std::vector<char16_t>>(character),
                        [](const std::vector<char16_t> &codes) {
                            return QString::fromUtf16(codes.data(), static_cast<int>(codes.size()));
                        });
}

/// A value in which Qt's classes and these agree: no NaN and no negative zero.
QJsonValue anyValue(int levels)
{
    switch (any(levels > 0 ? 8 : 6)) {
    case 0: return QJsonValue();
    case 1: return *rc::gen::arbitrary<bool>();
    case 2: return any(7) - 3;
    case 3: return any(140000000) - 70000000;
    case 4:
        return *rc::gen::map(rc::gen::arbitrary<double>(),
                             [](double d) { return std::isfinite(d) ? d + 0.0 : 0.5; });
    case 5: return *anyText();
    case 6: {
        QJsonArray array;
        for (int i = any(4); i > 0; --i)
            array.append(anyValue(levels - 1));
        return array;
    }
    default: {
        QJsonObject object;
        for (int i = any(4); i > 0; --i)
            object.insert(*anyText(), anyValue(levels - 1));
        return object;
    }
    }
}

std::string plainEscape(const QString &text)
{
    std::string escaped;
    for (const char c : text.toUtf8().toStdString()) {
        const std::string plain = "\"\\\b\t\n\f\r", letters = "\"\\btnfr";
        const std::size_t which = plain.find(c);
        char code[8];
        std::snprintf(code, sizeof code, "\\u%04x", static_cast<unsigned>(static_cast<unsigned char>(c)));
        if (which != std::string::npos)
            escaped += std::string("\\") + letters[which];
        else
            escaped += static_cast<unsigned char>(c) < 32 ? std::string(code) : std::string(1, c);
    }
    return escaped;
}

/// The text form by the plainest recursion.
std::string plainText(const QJsonValue &value, bool isIndented, int level = 0)
{
    const std::string line = isIndented ? "\n" : "", outer(isIndented ? std::size_t(level) * 4 : 0, ' ');
    const std::string blanks = isIndented ? outer + "    " : "", end = level == 0 ? line : "";
    std::string written;
    switch (value.type()) {
    case QJsonValue::Bool: return value.toBool() ? "T" : "F";
    case QJsonValue::Double: return QByteArray::number(value.toDouble(), 'g', 17).toStdString();
    case QJsonValue::String: return '"' + plainEscape(value.toString()) + '"';
    case QJsonValue::Array: {
        const QJsonArray array = value.toArray();
        for (int i = 0; i < array.size(); ++i)
            written += blanks + plainText(array.at(i), isIndented, level + 1) +
                       (i + 1 < array.size() ? "," : "") + line;
        return "[" + line + written + outer + "]" + end;
    }
    case QJsonValue::Object: {
        const QJsonObject object = value.toObject();
        for (auto it = object.begin(); it != object.end(); ++it)
            written += blanks + plainEscape(it.key()) + (isIndented ? ": " : ":") +
                       plainText(it.value(), isIndented, level + 1) + "," + line;
        return "{" + line + written + outer + "}" + end;
    }
    case QJsonValue::Null:
    case QJsonValue::Undefined: break;
    }
    return "null";
}

RC_GTEST_PROP(JsonProperties, aTreeGoesToQtsClassesAndBack, ())
{
    const QJsonValue qt = anyValue(3);
    const XJsonValue value = XJsonValue::fromJsonValue(qt);

    RC_ASSERT(value.toJsonValue() == qt);
    RC_ASSERT(value == XJsonValue::fromJsonValue(qt));
    RC_ASSERT(XJsonValue::fromVariant(value.toVariant()) == value);
    RC_ASSERT(value.toVariant() == qt.toVariant() || qt.isNull() || qt.isArray() || qt.isObject());
}

RC_GTEST_PROP(JsonProperties, equalityIsThatOfQtsClasses, ())
{
    const QJsonValue left = anyValue(1), right = anyValue(1);

    RC_ASSERT((XJsonValue::fromJsonValue(left) == XJsonValue::fromJsonValue(right)) == (left == right));
}

RC_GTEST_PROP(JsonProperties, theTextIsThatOfAPlainWriter, ())
{
    const QJsonArray qt{anyValue(3), anyValue(2)};
    const XJsonArray array = XJsonArray::fromJsonArray(qt);

    RC_ASSERT(text(array) == plainText(qt, false));
    RC_ASSERT(indented(array) == plainText(qt, true));
}

RC_GTEST_PROP(JsonProperties, anArrayChangesAsQtsDoes, ())
{
    QJsonArray qt;
    XJsonArray array;
    for (int step = any(30); step > 0; --step) {
        const QJsonValue qtValue = anyValue(2);
        const XJsonValue value = XJsonValue::fromJsonValue(qtValue);
        const int index = any(qt.size() + 1);
        const bool isInside = index < qt.size();
        switch (any(6)) {
        case 0: qt.append(qtValue), array.append(value); break;
        case 1: qt.insert(index, qtValue), array.insert(index, value); break;
        case 2:
            if (isInside)
                qt.replace(index, qtValue), array.replace(index, value);
            break;
        case 3:
            if (isInside)
                qt[index] = qtValue, array[index] = value;
            break;
        case 4:
            RC_ASSERT(array.takeAt(index).toJsonValue() ==
                      (isInside ? qt.takeAt(index) : QJsonValue::Undefined));
            break;
        default:
            array = XJsonArray({XJsonValue(array)}).at(0).toArray();
            break; // its storage is to be counted anew
        }
        RC_ASSERT(array.size() == qt.size());
    }
    RC_ASSERT(array.toJsonArray() == qt);
    RC_ASSERT(countedStorage(array) == binarySize(array));
}

RC_GTEST_PROP(JsonProperties, anObjectChangesAsQtsDoes, ())
{
    QJsonObject qt;
    XJsonObject object;
    for (int step = any(30); step > 0; --step) {
        const QJsonValue qtValue = anyValue(2);
        const XJsonValue value = XJsonValue::fromJsonValue(qtValue);
        const QString key = QString(QChar(0x61 + any(8)));
        switch (any(6)) {
        case 0:
        case 1: qt.insert(key, qtValue), object.insert(key, value); break;
        case 2: qt[key] = qtValue, object[key] = value; break;
        case 3: RC_ASSERT(object.take(key).toJsonValue() == qt.take(key)); break;
        case 4: qt.insert(key, QJsonValue::Undefined), object.insert(key, XJsonValue::Undefined); break;
        default: object = XJsonArray({XJsonValue(object)}).at(0).toObject(); break; // counted anew
        }
        RC_ASSERT(object.keys() == qt.keys());
        RC_ASSERT(object.value(key).toJsonValue() == qt.value(key));
    }
    RC_ASSERT(object.toJsonObject() == qt);
    RC_ASSERT(countedStorage(object) == binarySize(object));
}

} // namespace
