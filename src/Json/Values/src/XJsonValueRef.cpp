#include <VorJson/XJsonArray.h>
#include <VorJson/XJsonObject.h>
#include <VorJson/XJsonValueRef.h>

namespace VorSystem
{

XJsonValueRef &XJsonValueRef::operator=(const XJsonValue &value)
{
    if (mArray != nullptr)
        mArray->replace(mIndex, value);
    else
        mObject->writeAt(mIndex, value);
    return *this;
}

// NOLINTNEXTLINE(bugprone-unhandled-self-assignment): the value is read whole before it is written
XJsonValueRef &XJsonValueRef::operator=(const XJsonValueRef &other)
{
    return *this = other.value();
}

XJsonValueRef::operator XJsonValue() const
{
    return mArray != nullptr ? mArray->valueAt(mIndex) : mObject->valueAt(mIndex);
}

XJsonArray XJsonValueRef::toArray() const
{
    return value().toArray();
}

XJsonObject XJsonValueRef::toObject() const
{
    return value().toObject();
}

} // namespace VorSystem
