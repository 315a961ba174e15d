// Identity of a persistent object.
#pragma once

#include <VorConjoin/VorConjoinExport.h>

namespace VorSystem
{

class XJsonObject;

/// Number that names a vector within its group, also in a copy of the group. 0 names nothing.
class VORCONJOIN_EXPORT CDbID
{
public:
    CDbID() = default;
    /// Any number; those of a group's vectors are above 0.
    explicit CDbID(int number) : mNumber(number) {}
    /// A copy names the same.
    ///@{
    CDbID(const CDbID &) = default;
    CDbID &operator=(const CDbID &) = default;
    ///@}
    virtual ~CDbID();

    /// The bare number; 0 for none.
    int number() const { return mNumber; }
    /// Compare the numbers, of whatever groups.
    ///@{
    bool operator==(const CDbID &other) const { return mNumber == other.mNumber; }
    bool operator!=(const CDbID &other) const { return mNumber != other.mNumber; }
    ///@}

    /// {"id": number}
    XJsonObject toJson() const;
    /// Reads what toJson wrote; 0 when there is no whole number under "id".
    void fromJson(const XJsonObject &object);

private:
    int mNumber = 0;
};

} // namespace VorSystem
