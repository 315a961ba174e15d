// Reading JSON with the path of what is read.

#include "JsonPlace.h"
#include "RepeatedKey.h"

#include <QJsonDocument>

#include <algorithm>
#include <cmath>

namespace VorSystem
{

QJsonValue parsedJson(const QByteArray &text)
{
    const QByteArray twice = repeatedKey(text);
    if (!twice.isEmpty())
        throw JsonFault("The key " + twice.toStdString() + " stands twice in one object.");
    QJsonParseError problem;
    const QJsonDocument json = QJsonDocument::fromJson(text, &problem);
    if (problem.error != QJsonParseError::NoError) {
        const int line = text.left(problem.offset).count('\n') + 1;
        throw JsonFault(
            QStringLiteral("Line %1: %2.").arg(QString::number(line), problem.errorString()).toStdString());
    }
    return json.isArray() ? QJsonValue(json.array()) : QJsonValue(json.object());
}

void JsonPlace::fail(const char *fault) const
{
    const QString words = QString::fromUtf8(fault);
    const QString where = path();
    const QString what = where.isEmpty() ? QStringLiteral("The text ") : where + QStringLiteral(": ");
    throw JsonFault((what + words).toStdString());
}

QString JsonPlace::path() const
{
    if (!mParent)
        return QString();
    const QString above = mParent->path();
    if (!mKey)
        return above + QStringLiteral("[%1]").arg(mIndex);
    return above.isEmpty() ? QString::fromUtf8(mKey) : above + QLatin1Char('.') + QString::fromUtf8(mKey);
}

const JsonPlace &JsonPlace::onlyKeys(std::initializer_list<const char *> keys) const
{
    require(mValue.isObject(), "is not an object");
    const QJsonObject object = mValue.toObject();
    for (auto member = object.begin(); member != object.end(); ++member) {
        const QByteArray key = member.key().toUtf8();
        const bool isKnown =
            std::any_of(keys.begin(), keys.end(), [&](const char *known) { return key == known; });
        if (!isKnown)
            JsonPlace(*this, key.constData(), 0, member.value()).fail("is no key of this form");
    }
    return *this;
}

JsonPlace JsonPlace::operator[](const char *key) const
{
    require(mValue.isObject(), "is not an object");
    return JsonPlace(*this, key, 0, mValue.toObject().value(QLatin1String(key)));
}

int JsonPlace::count() const
{
    require(mValue.isArray(), isThere() ? "is not a list" : "is missing");
    return mValue.toArray().size();
}

JsonPlace JsonPlace::operator[](int index) const
{
    return JsonPlace(*this, nullptr, index, mValue.toArray().at(index));
}

double JsonPlace::number() const
{
    require(isThere(), "is missing");
    require(mValue.isDouble(), "is not a number");
    require(std::isfinite(mValue.toDouble()), "is not a finite number");
    return mValue.toDouble();
}

int JsonPlace::whole(int least, int greatest) const
{
    const double found = number();
    require(std::trunc(found) == found, "is not a whole number");
    require(found >= least && found <= greatest, "is out of range");
    return static_cast<int>(found);
}

bool JsonPlace::truth(bool otherwise) const
{
    require(!isThere() || mValue.isBool(), "is neither true nor false");
    return mValue.toBool(otherwise);
}

QString JsonPlace::text() const
{
    require(isThere(), "is missing");
    require(mValue.isString(), "is not a text");
    return mValue.toString();
}

QString JsonPlace::text(const QString &otherwise) const
{
    return isThere() ? text() : otherwise;
}

} // namespace VorSystem
