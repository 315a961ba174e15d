#include "UnreadValues.h"

#include "Told.h"

#include <QJsonArray>
#include <QJsonObject>

#include <limits>

namespace VorSystem
{

namespace
{

enum class Kind { Text, Truth, Number, Whole, Position, Numbers, Object, Objects, Anything };

struct StoredForm;

struct StoredKey {
    const char *key;
    Kind kind;
    const StoredForm *form = nullptr; ///< of an object, or of the objects of a list
};

struct StoredForm {
    const StoredKey *first;
    const StoredKey *last;
    const char *name; ///< the key that names such an object; null for none

    template<int count>
    constexpr explicit StoredForm(const StoredKey (&keys)[count], const char *nameKey = nullptr)
        : first(keys), last(keys + count), name(nameKey)
    {
    }
    const StoredKey *find(const QString &key) const
    {
        for (const StoredKey *known = first; known != last; ++known) {
            if (key == QLatin1String(known->key))
                return known;
        }
        return nullptr;
    }
};

// Sets
// ------------------------------------------------------------------------------------------------------

constexpr StoredKey kValuesKeys[] = {{"index_medium", Kind::Position}, {"measures", Kind::Numbers}};
constexpr StoredForm kValues(kValuesKeys);
constexpr StoredKey kBothValuesKeys[] = {
    {"index_medium", Kind::Position}, {"measures", Kind::Numbers}, {"levels", Kind::Numbers}};
constexpr StoredForm kBothValues(kBothValuesKeys);

constexpr StoredKey kSegmentKeys[] = {{"name", Kind::Text},
                                      {"influence_area_percent", Kind::Number},
                                      {"displace", Kind::Whole},
                                      {"measure", Kind::Object, &kValues}};
constexpr StoredForm kSegment(kSegmentKeys, "name");
constexpr StoredKey kSpecKeys[] = {{"name", Kind::Text}, {"measure", Kind::Object, &kValues}};
constexpr StoredForm kSpec(kSpecKeys, "name");
constexpr StoredKey kCenterKeys[] = {{"name", Kind::Text}, {"characteristic", Kind::Whole}};
constexpr StoredForm kCenter(kCenterKeys, "name");
constexpr StoredKey kLinkKeys[] = {
    {"name", Kind::Text}, {"type", Kind::Whole}, {"measure", Kind::Object, &kBothValues}};
constexpr StoredForm kLink(kLinkKeys, "name");
constexpr StoredKey kFrameKeys[] = {{"name", Kind::Text},
                                    {"center_name", Kind::Text},
                                    {"link_name", Kind::Text},
                                    {"perimeter_measurement", Kind::Truth},
                                    {"level_zero", Kind::Truth},
                                    {"measure_type", Kind::Whole},
                                    {"percentage_measure_rating", Kind::Number},
                                    {"ratio", Kind::Number},
                                    {"measure", Kind::Object, &kBothValues}};
constexpr StoredForm kFrame(kFrameKeys, "name");
// Whether a formula arrived depends on more than its type.
constexpr StoredKey kRecordKeys[] = {{"name", Kind::Text},
                                     {"formular_measure", Kind::Anything},
                                     {"formular_level", Kind::Anything},
                                     {"formular_spec", Kind::Anything}};
constexpr StoredForm kRecord(kRecordKeys, "name");
constexpr StoredKey kSetKeys[] = {{"set_name", Kind::Text},
                                  {"segments", Kind::Objects, &kSegment},
                                  {"specs", Kind::Objects, &kSpec},
                                  {"measurementCharts", Kind::Objects, &kSpec},
                                  {"centers", Kind::Objects, &kCenter},
                                  {"links", Kind::Objects, &kLink},
                                  {"frames", Kind::Objects, &kFrame},
                                  {"formulars", Kind::Objects, &kRecord}};
constexpr StoredForm kSet(kSetKeys);

// Skeletons
// ------------------------------------------------------------------------------------------------------

constexpr StoredKey kIdentityKeys[] = {{"id", Kind::Whole}};
constexpr StoredForm kIdentity(kIdentityKeys);
constexpr StoredKey kBaseKeys[] = {{"points", Kind::Objects, &kIdentity}, {"direction", Kind::Truth}};
constexpr StoredForm kBase(kBaseKeys);
constexpr StoredKey kRegionKeys[] = {{"region", Kind::Whole}};
constexpr StoredForm kRegion(kRegionKeys);
constexpr StoredKey kControlCenterKeys[] = {{"base", Kind::Object, &kBase},
                                            {"set_name", Kind::Text},
                                            {"center_name", Kind::Text},
                                            {"right_regions", Kind::Object, &kRegion}};
constexpr StoredForm kControlCenter(kControlCenterKeys, "center_name");
constexpr StoredKey kControlFrameKeys[] = {{"base", Kind::Object, &kBase},
                                           {"set_name", Kind::Text},
                                           {"frame_name", Kind::Text},
                                           {"is_agrees_link", Kind::Truth}};
constexpr StoredForm kControlFrame(kControlFrameKeys, "frame_name");
constexpr StoredKey kControlSegmentKeys[] = {
    {"base", Kind::Object, &kBase}, {"set_name", Kind::Text}, {"segment_name", Kind::Text}};
constexpr StoredForm kControlSegment(kControlSegmentKeys, "segment_name");
constexpr StoredKey kSkeletonKeys[] = {{"center", Kind::Object, &kControlCenter},
                                       {"frames", Kind::Objects, &kControlFrame},
                                       {"segments", Kind::Objects, &kControlSegment}};
constexpr StoredForm kSkeleton(kSkeletonKeys);

// The search
// ------------------------------------------------------------------------------------------------------

bool isWhole(const QJsonValue &value)
{
    return value.isDouble() && value.toInt(0) == value.toDouble();
}

bool isPosition(const QJsonValue &value)
{
    return isWhole(value) && value.toInt() >= std::numeric_limits<short>::min() &&
           value.toInt() <= std::numeric_limits<short>::max();
}

// What becomes of a value that is not of the kind; null when it is.
const char *faultOf(const QJsonValue &value, Kind kind)
{
    switch (kind) {
    case Kind::Text: return value.isString() ? nullptr : "is not a text, and was read as an empty one";
    case Kind::Truth: return value.isBool() ? nullptr : "is neither true nor false, and was read as false";
    case Kind::Number: return value.isDouble() ? nullptr : "is not a number, and was read as 0";
    case Kind::Whole: return isWhole(value) ? nullptr : "is not a whole number, and was read as 0";
    case Kind::Position: return isPosition(value) ? nullptr : "is not a place in a list, and was read as 0";
    case Kind::Numbers:
    case Kind::Objects: return value.isArray() ? nullptr : "is not a list, and was read as an empty one";
    case Kind::Object: return value.isObject() ? nullptr : "is not an object, and was read as an empty one";
    case Kind::Anything: break;
    }
    return nullptr;
}

void tellUnread(const QJsonObject &stored, const StoredForm &form, const QString &path, Told &told);

void tellUnreadValue(const QJsonValue &value, Kind kind, const StoredForm *form, const QString &path,
                     Told &told)
{
    if (const char *const fault = faultOf(value, kind)) {
        told.add(path + QLatin1Char(' ') + QLatin1String(fault) + QLatin1Char('.'));
        return;
    }
    const QJsonArray items = value.toArray();
    switch (kind) {
    case Kind::Object: tellUnread(value.toObject(), *form, path + QLatin1Char('.'), told); return;
    case Kind::Objects:
        for (int index = 0; index < items.size(); ++index) {
            QString place = QStringLiteral("%1[%2]").arg(path, QString::number(index));
            if (form->name != nullptr)
                place += QStringLiteral(" \"%1\"").arg(
                    items.at(index).toObject().value(QLatin1String(form->name)).toString());
            tellUnreadValue(items.at(index), Kind::Object, form, place, told);
        }
        return;
    case Kind::Numbers:
        for (int index = 0; index < items.size(); ++index) {
            if (!items.at(index).isDouble()) // no path is built for the many that are
                tellUnreadValue(items.at(index), Kind::Number, nullptr,
                                QStringLiteral("%1[%2]").arg(path, QString::number(index)), told);
        }
        return;
    case Kind::Text:
    case Kind::Truth:
    case Kind::Number:
    case Kind::Whole:
    case Kind::Position:
    case Kind::Anything: return;
    }
}

void tellUnread(const QJsonObject &stored, const StoredForm &form, const QString &path, Told &told)
{
    for (auto member = stored.begin(); member != stored.end(); ++member) {
        const QString place = path + member.key();
        if (const StoredKey *const known = form.find(member.key()))
            tellUnreadValue(member.value(), known->kind, known->form, place, told);
        else
            told.add(place + QStringLiteral(" is no key of this form, and was passed over."));
    }
}

} // namespace

void tellUnreadOfSet(const QJsonObject &stored, Told &told)
{
    tellUnread(stored, kSet, QString(), told);
}

void tellUnreadOfSkeleton(const QJsonObject &stored, Told &told)
{
    tellUnread(stored, kSkeleton, QString(), told);
}

} // namespace VorSystem
