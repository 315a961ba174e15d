// Properties of stored managers, and the replay of what the fuzzer found worth keeping.

#include "JsonTexts.h"

#include "manager_json_checks.h"

#include <QDir>
#include <QFile>
#include <rapidcheck/gtest.h>

using namespace VorSystem;
using jsontest::setNames;
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

RC_GTEST_PROP(ManagerJsonProperties, oneDamagedSetCostsExactlyItself, ())
{
    const QByteArray steering = asByteArray(*bytes());
    const XJsonObject object = ManagerWriter(steering, ManagerWriter::Names::Sound).manager();
    XJsonArray sets = object.value(QStringLiteral("frames")).toArray();
    RC_PRE(sets.size() > 0);
    const std::string whole = text(written(object));
    GestFrames complete;
    complete.fromJson(object, false);
    RC_PRE(complete.getFrameSets().count() == sets.size());

    const int damaged = *rc::gen::inRange(0, sets.size());
    XJsonObject set = sets.at(damaged).toObject();
    XJsonArray frames = set.value(QStringLiteral("frames")).toArray();
    frames.append(jsontest::object("{'name':'F','center_name':'gone'}"));
    set.insert(QStringLiteral("frames"), frames);
    XJsonArray withDamage = sets;
    withDamage.replace(damaged, set);
    sets.removeAt(damaged);

    const auto managerOf = [](const XJsonArray &array) {
        XJsonObject manager;
        manager.insert(QStringLiteral("frames"), array);
        return manager;
    };
    RC_ASSERT(text(written(managerOf(withDamage))) == text(written(managerOf(sets))));
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
