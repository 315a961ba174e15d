// A place in a JSON text: reading with the path of what is read.
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <QStringList>

#include <initializer_list>
#include <stdexcept>

namespace VorSystem
{

/// Something in a JSON text is not as it must be; what() names the path and the fault, in UTF-8.
struct JsonFault : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The value of a JSON text. Raises JsonFault, with the line, for a text that is none and for a key that
/// stands twice in one object.
QJsonValue parsedJson(const QByteArray &text);

/// A value and where it stands. All readers raise JsonFault for another type.
class JsonPlace
{
public:
    /// The whole text; its path is empty.
    explicit JsonPlace(const QJsonValue &value) : mValue(value) {}

    /// Raises JsonFault for this place.
    [[noreturn]] void fail(const char *fault) const;
    void require(bool holds, const char *fault) const
    {
        if (!holds)
            fail(fault);
    }

    const QJsonValue &value() const { return mValue; }
    bool isThere() const { return !mValue.isUndefined(); }

    /// An object with no other keys than these.
    const JsonPlace &onlyKeys(std::initializer_list<const char *> keys) const;
    /// A member; one that is not there fails when it is read.
    JsonPlace operator[](const char *key) const;

    int count() const;
    JsonPlace operator[](int index) const;
    /// The items of a list; none when it is not there.
    template<class Act>
    void forEach(Act act) const
    {
        for (int index = 0, end = isThere() ? count() : 0; index < end; ++index)
            act((*this)[index]);
    }

    /// A finite number.
    double number() const;
    /// A whole number between two.
    int whole(int least, int greatest) const;
    bool truth(bool otherwise) const; ///< otherwise when it is not there
    QString text() const;
    QString text(const QString &otherwise) const; ///< otherwise when it is not there

private:
    JsonPlace(const JsonPlace &parent, const char *key, int index, const QJsonValue &value)
        : mValue(value), mParent(&parent), mKey(key), mIndex(index)
    {
    }
    QString path() const;

    // A place must not outlive the one it was taken from: the path is only built when something is wrong.
    QJsonValue mValue;
    const JsonPlace *mParent = nullptr;
    const char *mKey = nullptr;
    int mIndex = 0;
};

} // namespace VorSystem
