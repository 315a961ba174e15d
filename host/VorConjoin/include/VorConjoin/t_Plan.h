// The plan of a document: its groups.
#pragma once

#include <VorConjoin/VorConjoinExport.h>

#include <QString>

#include <vector>

namespace VorSystem
{

class BaseFrame;
class CDbGroupObject;

/// The pieces of a document, in order. Owns them.
class VORCONJOIN_EXPORT t_Plan
{
public:
    t_Plan() = default;
    t_Plan(const t_Plan &) = delete;
    t_Plan &operator=(const t_Plan &) = delete;
    virtual ~t_Plan();

    /// Does the change of an element concern locked pieces: 0 no, 1 locked pieces, 2 clones of locked pieces.
    /// This plan knows no elements and answers 0.
    virtual int lockState(BaseFrame *element) const;

    /// Takes a group over, as the last one. False for null and for one that is there already.
    bool addGroup(CDbGroupObject *group);
    /// Gives a group back to the caller; false for a stranger.
    bool takeGroup(CDbGroupObject *group);
    /// Destroys a group; false for a stranger.
    bool removeGroup(CDbGroupObject *group);
    /// The pieces in order.
    const std::vector<CDbGroupObject *> &groups() const { return mGroups; }
    /// The first group of a name; null for none.
    CDbGroupObject *groupByName(const QString &name) const;

private:
    std::vector<CDbGroupObject *> mGroups;
};

} // namespace VorSystem
