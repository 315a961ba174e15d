// Properties of stored managers, and the replay of what the fuzzer found worth keeping.

#include "RandomManagers.h"

#include "manager_json_checks.h"

#include <QDir>
#include <QFile>
#include <QStringList>
#include <map>
#include <memory>
#include <rapidcheck/gtest.h>
#include <vector>

using namespace VorSystem;
using jsontest::Losses;
using jsontest::Random;
using jsontest::text;
using manager_json_checks::ManagerWriter;

namespace
{

rc::Gen<std::vector<std::uint8_t>> bytes()
{
    return rc::gen::resize(400, rc::gen::arbitrary<std::vector<std::uint8_t>>());
}

QByteArray asByteArray(const std::vector<std::uint8_t> &values)
{
    return QByteArray(reinterpret_cast<const char *>(values.data()), static_cast<int>(values.size()));
}

XJsonObject written(const XJsonObject &object)
{
    GestFrames manager;
    manager.fromJson(object, false);
    return manager.toJson();
}

// The first reading loses what the stored form is known to lose; from then on nothing changes.
RC_GTEST_PROP(ManagerJsonProperties, soundDocumentsAreStableFromTheSecondWriting, ())
{
    const QByteArray steering = asByteArray(*bytes());
    const XJsonObject object = ManagerWriter(steering, ManagerWriter::Names::Sound).manager();
    const XJsonObject second = written(object);
    RC_ASSERT(text(written(second)) == text(second));
}

RC_GTEST_PROP(ManagerJsonProperties, hostileDocumentsLeaveExactlyTheirSoundSets, ())
{
    manager_json_checks::check(asByteArray(*bytes()));
}

// --- Managers as hosts fill them ---

std::unique_ptr<GestFrames> randomManager(Random &random, int sets, Losses losses)
{
    auto manager = std::make_unique<GestFrames>();
    jsontest::fill(*manager, random, sets, losses);
    return manager;
}

Random anyRandom()
{
    return Random(*rc::gen::arbitrary<std::uint32_t>());
}

XJsonArray setsOf(const XJsonObject &manager)
{
    return manager.value(QStringLiteral("frames")).toArray();
}

XJsonObject managerOf(const XJsonArray &sets)
{
    return {{QStringLiteral("frames"), sets}};
}

/// The nest's value of every formula that is stored, in the order of the lists.
std::vector<double> valuesOfFormulas(const GestFrames &manager)
{
    std::vector<double> values;
    const auto add = [&values](TreeEquations *formula) {
        if (formula != nullptr)
            values.push_back(formula->evaluate(-1));
    };
    for (const FrameSet *set : manager.getFrameSets()) {
        for (FrameSegment *segment : set->getFrameSegments())
            add(segment->measurementFormula());
        for (FrameSpec *spec : set->getFrameSpecs())
            add(spec->formulaSpec());
        for (FrameLink *link : set->getFrameLinks())
            add(link->measurementFormula()), add(link->formulaLevel());
        for (FrameFrame *frame : set->getFrames())
            add(frame->measurementFormula()), add(frame->formulaLevel());
    }
    return values;
}

// What the other properties are worth: nothing that can be stored is rare in their documents.
TEST(ManagerJsonProperties, randomManagersAreRich)
{
    std::map<std::string, int> seen;
    Random random(7);
    for (int turn = 0; turn < 40; ++turn) {
        const auto manager = randomManager(random, 3, Losses::Known);
        for (const XJsonValue &item : setsOf(manager->toJson())) {
            const XJsonObject set = item.toObject();
            for (const QString &key : set.keys())
                seen[key.toStdString()] += set.value(key).toArray().size();
            for (const XJsonValue &frame : set.value(QStringLiteral("frames")).toArray()) {
                for (const char *key : {"link_name", "level_zero", "perimeter_measurement"}) {
                    const XJsonValue value = frame.toObject().value(QLatin1String(key));
                    seen[key] += value.isString() || value.toBool() ? 1 : 0;
                }
            }
            for (const XJsonValue &record : set.value(QStringLiteral("formulars")).toArray()) {
                for (const QString &key : record.toObject().keys())
                    ++seen[key.toStdString()];
            }
            for (int contents = 1; contents <= 8; ++contents)
                seen["kind " + std::to_string(contents)] +=
                    static_cast<int>(set.toText().count("contents:" + QByteArray::number(contents) + ","));
        }
    }
    for (const char *key : {"segments",         "specs",          "measurementCharts",
                            "centers",          "links",          "frames",
                            "link_name",        "level_zero",     "perimeter_measurement",
                            "formular_measure", "formular_level", "formular_spec",
                            "kind 1",           "kind 2",         "kind 3",
                            "kind 4",           "kind 5",         "kind 6",
                            "kind 7",           "kind 8"})
        EXPECT_GT(seen[key], 40) << key;
}

RC_GTEST_PROP(ManagerJsonProperties, managersWithoutLossesComeBackAsTheyWere, ())
{
    Random random = anyRandom();
    const auto manager = randomManager(random, jsontest::any(random, 4), Losses::None);
    const XJsonObject stored = manager->toJson();
    RC_ASSERT(stored == manager->toJson()); // writing changes nothing

    GestFrames again;
    again.fromJson(stored, false);
    RC_ASSERT(text(again.toJson()) == text(stored));
    RC_ASSERT(valuesOfFormulas(again) == valuesOfFormulas(*manager));
}

RC_GTEST_PROP(ManagerJsonProperties, managersWithLossesAreStableFromTheSecondWriting, ())
{
    Random random = anyRandom();
    const auto manager = randomManager(random, jsontest::any(random, 4), Losses::Known);
    const XJsonObject second = written(manager->toJson());
    RC_ASSERT(setsOf(second).size() == manager->numberOfFrameSets());
    const XJsonObject third = written(second);
    RC_ASSERT(text(third) == text(second));
    RC_ASSERT(third == second);
}

RC_GTEST_PROP(ManagerJsonProperties, oneDamagedSetCostsExactlyItself, ())
{
    Random random = anyRandom();
    const int count = 1 + jsontest::any(random, 4);
    const XJsonArray whole = setsOf(written(randomManager(random, count, Losses::Known)->toJson()));
    RC_ASSERT(whole.size() == count);

    const int victim = jsontest::any(random, count);
    XJsonArray sets = whole, others = whole;
    sets.replace(victim, jsontest::damaged(whole.at(victim).toObject(), random));
    others.removeAt(victim);
    RC_ASSERT(text(written(managerOf(sets))) == text(managerOf(others)));
}

RC_GTEST_PROP(ManagerJsonProperties, whateverHappensToASetTheOthersArrive, ())
{
    Random random = anyRandom();
    const int count = 1 + jsontest::any(random, 3);
    const XJsonArray whole = setsOf(written(randomManager(random, count, Losses::Known)->toJson()));
    for (int turn = 0; turn < 10; ++turn) {
        const int victim = jsontest::any(random, count);
        const XJsonObject changed = jsontest::changedSomewhere(whole.at(victim).toObject(), random);
        XJsonArray sets = whole, expected = whole;
        sets.replace(victim, changed);
        // The set by itself tells whether it is sound, and what is to be seen of it.
        FrameSet alone(QString(), nullptr);
        if (jsontest::thrown([&] { alone.fromJson(changed); }).empty())
            expected.replace(victim, alone.toJson());
        else
            expected.removeAt(victim);
        RC_ASSERT(text(written(managerOf(sets))) == text(managerOf(expected)));
    }
}

// Names are found while a set is read as a plain search of the finished set finds them, however they collide.
void expectReferencesOf(const ElementEquation *node, const XJsonObject &stored, const FrameSet &set)
{
    RC_ASSERT(node != nullptr);
    if (node->contents == ElemMeasure || node->contents == ElemLevel) {
        const QString name = stored.value(QStringLiteral("frame_element")).toString();
        RC_ASSERT(node->element == set.foundElementAccordingName(name, true));
    }
    if (node->contents >= ElemParenthesis && node->contents <= ElemDivide)
        expectReferencesOf(node->sonLeft, stored.value(QStringLiteral("son_left")).toObject(), set);
    if (node->contents >= ElemAdd && node->contents <= ElemDivide)
        expectReferencesOf(node->sonRight, stored.value(QStringLiteral("son_right")).toObject(), set);
}

RC_GTEST_PROP(ManagerJsonProperties, referencesOfHostileDocumentsAreThoseOfAPlainSearch, ())
{
    const QByteArray steering = asByteArray(*bytes());
    const XJsonObject object = ManagerWriter(steering, ManagerWriter::Names::Hostile).manager();
    for (const XJsonObject &stored : manager_json_checks::soundSets(object)) {
        FrameSet set(QString(), nullptr);
        set.fromJson(stored);
        // The last formula of a place is the one that it holds.
        std::map<TreeEquations *, XJsonObject> formulas;
        for (const XJsonValue &item : stored.value(QStringLiteral("formulars")).toArray()) {
            const XJsonObject record = item.toObject();
            BaseFrame *const element =
                set.foundElementAccordingName(record.value(QStringLiteral("name")).toString(), true);
            if (element == nullptr)
                continue;
            const std::pair<const char *, TreeEquations *> places[] = {
                {"formular_measure", element->measurementFormula()},
                {"formular_level", element->formulaLevel()},
                {"formular_spec", element->formulaSpec()},
            };
            for (const auto &place : places) {
                const XJsonValue value = record.value(QLatin1String(place.first));
                if (place.second != nullptr && (value.isObject() || value.isString()))
                    formulas[place.second] = value.toObject(); // none for a text
            }
        }
        for (const auto &formula : formulas) {
            if (!formula.second.isEmpty())
                expectReferencesOf(formula.first->root,
                                   formula.second.value(QStringLiteral("root")).toObject(), set);
        }
    }
}

TEST(ManagerJsonCorpus, everyInputKeptIsTaken)
{
    const QDir corpus(QStringLiteral(MANAGER_JSON_CORPUS));
    const QStringList names = corpus.entryList(QDir::Files);
    ASSERT_FALSE(names.isEmpty());
    for (const QString &name : names) {
        SCOPED_TRACE(name.toStdString());
        QFile file(corpus.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        if (name.endsWith(QLatin1String(".json")))
            manager_json_checks::checkText(file.readAll());
        else
            manager_json_checks::check(file.readAll());
    }
}

} // namespace
