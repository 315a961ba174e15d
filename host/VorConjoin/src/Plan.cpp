// The plan of a document and the document itself, as far as this floor knows them.

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/Document.h>
#include <VorConjoin/t_Plan.h>

#include <algorithm>

namespace VorSystem
{

Document::~Document() = default;

t_Plan::~t_Plan()
{
    for (CDbGroupObject *group : mGroups)
        delete group;
}

int t_Plan::lockState(BaseFrame *) const
{
    return 0;
}

bool t_Plan::addGroup(CDbGroupObject *group)
{
    if (!group || std::find(mGroups.begin(), mGroups.end(), group) != mGroups.end())
        return false;
    mGroups.push_back(group);
    return true;
}

bool t_Plan::takeGroup(CDbGroupObject *group)
{
    const auto place = std::find(mGroups.begin(), mGroups.end(), group);
    if (place == mGroups.end())
        return false;
    mGroups.erase(place);
    return true;
}

bool t_Plan::removeGroup(CDbGroupObject *group)
{
    if (!takeGroup(group))
        return false;
    delete group;
    return true;
}

CDbGroupObject *t_Plan::groupByName(const QString &name) const
{
    const auto place = std::find_if(mGroups.begin(), mGroups.end(),
                                    [&](const CDbGroupObject *group) { return group->name() == name; });
    return place == mGroups.end() ? nullptr : *place;
}

} // namespace VorSystem
