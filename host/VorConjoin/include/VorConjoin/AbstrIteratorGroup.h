// Walk over the groups of a plan.
#pragma once

#include <VorConjoin/VorConjoinExport.h>

#include <boost/shared_ptr.hpp>

namespace VorSystem
{

class CDbGroupObject;
class t_Plan;

/// Which groups of a plan are walked.
enum eIteratorGroup {
    Iterator_AllGroups = 0,
};

/// A walk over groups, in the plan's order.
class VORCONJOIN_EXPORT AbstrIteratorGroup
{
public:
    virtual ~AbstrIteratorGroup();

    /// A new walk; never null. A null plan has no group. The plan must outlive the walk.
    static boost::shared_ptr<AbstrIteratorGroup> create(const t_Plan *plan, eIteratorGroup which);

    /// Puts the next group in its argument; false, and the argument null, when the walk has ended.
    virtual bool next(CDbGroupObject *&group) = 0;
};

} // namespace VorSystem
