// Texts that are damaged: what is sound arrives, nothing else is touched, and what was read can be saved.

#include "TestDocument.h"

#include <VorDocument/DocumentFile.h>

#include <QJsonDocument>
#include <gtest/gtest.h>

#include <functional>
#include <random>

using namespace VorSystem;
using documents::Elements;
using documents::enter;
using documents::str;
using documents::text;

namespace
{

using Random = std::mt19937;

int below(Random &random, int count)
{
    return static_cast<int>(random() % static_cast<unsigned>(count));
}

QByteArray compact(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

QJsonObject parsed(const QByteArray &words)
{
    return QJsonDocument::fromJson(words).object();
}

// A set of every kind of element, with formulas, and a piece that is tied to it.
void fill(PatternDocument &document, const char *setName, const char *pieceName)
{
    Elements elements(document);
    elements.set->setName(text(setName));
    FrameMeasurementChart *const chart = elements.set->newMeasurementChart(text("Chart"));
    for (double value : {1.0, 2.5})
        chart->getMeasureBySizes()->mValues.append(value);
    elements.spec->setFormulaSpec(
        TreeEquations::parse(text("(Measure(Side) + 2) / 2 - 1"), elements.set, true));
    elements.waist->setFormulaMeasurement(
        TreeEquations::parse(text("Measure(Front:Chest) * 0.5"), elements.set, true));
    elements.waist->setFormulaLevel(
        TreeEquations::parse(text("Level(Front:Chest) - 10"), elements.set, true));
    elements.tieTo(document, enter(document, support::rectangle(), pieceName));
}

QByteArray smallText()
{
    PatternDocument document;
    document.setSizes({text("S"), text("M")}, 1);
    fill(document, "Garment", "Front");
    return documentToText(document);
}

// Calls act with the document for each of its values replaced by what changed gives for it, and for the value
// taken out where that is undefined.
void forEachValue(const QJsonValue &value, const std::function<QJsonValue(const QJsonValue &)> &changed,
                  const std::function<void(const QJsonValue &)> &act)
{
    act(changed(value));
    if (value.isArray()) {
        const QJsonArray items = value.toArray();
        for (int index = 0; index < items.size(); ++index) {
            forEachValue(items.at(index), changed, [&](const QJsonValue &item) {
                QJsonArray others = items;
                if (item.isUndefined())
                    others.removeAt(index);
                else
                    others.replace(index, item);
                act(others);
            });
        }
    }
    const QJsonObject object = value.toObject();
    for (const QString &key : object.keys()) {
        forEachValue(object.value(key), changed, [&](const QJsonValue &member) {
            QJsonObject others = object;
            others.insert(key, member); // an undefined one takes the key out
            act(others);
        });
    }
}

// A document that stands; whatever is read into it either replaces it whole, or leaves it as it is.
class HostileDocument : public testing::Test
{
protected:
    HostileDocument()
    {
        EXPECT_TRUE(documentFromText(mStanding, mDocument));
        mPiece = mDocument.pieces().front();
    }

    // True when the text is taken as a document.
    bool isRead(const QByteArray &words)
    {
        DocumentReport report;
        if (!documentFromText(words, mDocument, &report)) {
            EXPECT_NE(str(report.error), "") << str(words);
            EXPECT_TRUE(report.dropped.isEmpty());
            EXPECT_EQ(mDocument.pieces().front(), mPiece);
            return false;
        }
        EXPECT_EQ(str(report.error), "");
        expectThatItCanBeSaved(words);
        EXPECT_TRUE(documentFromText(mStanding, mDocument));
        mPiece = mDocument.pieces().front();
        return true;
    }

    void expectThatItCanBeSaved(const QByteArray &words)
    {
        DocumentReport report;
        const QByteArray second = documentToText(mDocument, &report);
        EXPECT_EQ(str(report.error), "") << str(words);
        EXPECT_EQ(str(report.dropped.join(text("|"))), "") << str(words);
        PatternDocument again;
        EXPECT_TRUE(documentFromText(second, again, &report)) << str(report.error);
        EXPECT_EQ(str(documentToText(again)), str(second)) << str(words);
    }

    const QByteArray mSmall = smallText();
    const QByteArray mStanding = mSmall;
    PatternDocument mDocument;
    const CDbGroupObject *mPiece = nullptr;
};

TEST_F(HostileDocument, anyPrefixIsRefusedInWords)
{
    const int end = mSmall.lastIndexOf('}');
    for (int length = 0; length <= end; ++length)
        EXPECT_FALSE(isRead(mSmall.left(length))) << length;
    EXPECT_TRUE(isRead(mSmall.left(end + 1)));
}

TEST_F(HostileDocument, anyValueMayBeOfAnotherType)
{
    const QJsonValue replacements[] = {QJsonValue(QJsonValue::Null),
                                       QJsonValue(QJsonValue::Undefined),
                                       QJsonValue(true),
                                       QJsonValue(7),
                                       QJsonValue(-1.5e300),
                                       QJsonValue(4294967301.0),
                                       QJsonValue(text("Front:Chest")),
                                       QJsonValue(QJsonArray{QJsonArray{}, 1, text("x")}),
                                       QJsonValue(QJsonObject{{text("name"), text("Side")}})};
    int read = 0;
    int refused = 0;
    for (const QJsonValue &replacement : replacements) {
        forEachValue(
            parsed(mSmall), [&](const QJsonValue &) { return replacement; },
            [&](const QJsonValue &document) {
                const QByteArray words = document.isArray() ? QJsonDocument(document.toArray()).toJson()
                                                            : compact(document.toObject());
                ++(isRead(words) ? read : refused);
            });
    }
    EXPECT_GT(read, 500);
    EXPECT_GT(refused, 200);
}

TEST_F(HostileDocument, anyKeyThatStandsTwiceIsRefused)
{
    int keys = 0;
    for (int at = mSmall.indexOf("\": "); at >= 0; at = mSmall.indexOf("\": ", at + 1)) {
        const int start = mSmall.lastIndexOf('"', at - 1);
        QByteArray words = mSmall;
        words.insert(start, mSmall.mid(start, at + 1 - start) + ": 1, ");
        EXPECT_FALSE(isRead(words)) << str(words);
        ++keys;
    }
    EXPECT_GT(keys, 100);
}

TEST_F(HostileDocument, numbersThatNoDoubleHoldsAreRefused)
{
    for (const char *number : {"1e400", "-1e400", "NaN", "Infinity", "0x10"}) {
        QByteArray words = mSmall;
        words.replace("\"percentage_measure_rating\": 50",
                      QByteArray("\"percentage_measure_rating\": ") + number);
        EXPECT_FALSE(isRead(words)) << number;
    }
}

TEST_F(HostileDocument, circlesOfFormulasAreOnlyFormulas)
{
    const std::pair<const char *, const char *> rows[] = {
        {"\"Side\"", "\"Ease\""},               // the spec of itself
        {"\"Front:Chest\"", "\"Front:Waist\""}, // the frame of itself
        {"\"Front:Chest\"", "\"Ease\""},
    };
    for (const auto &row : rows) {
        QByteArray words = mSmall;
        words.replace(QByteArray("\"frame_element\": ") + row.first,
                      QByteArray("\"frame_element\": ") + row.second);
        ASSERT_NE(str(words), str(mSmall));
        EXPECT_TRUE(isRead(words)) << row.second;
    }
}

TEST_F(HostileDocument, nestingUpToWhatTheParserTakesIsHarmless)
{
    for (const int depth : {100, 900, 1100}) {
        for (const char *pair : {"[]", "{}"}) {
            QByteArray deep;
            for (int level = 0; level < depth; ++level)
                deep += pair[0] == '[' ? QByteArray("[") : QByteArray("{\"a\": ");
            deep += '0' + QByteArray(depth, pair[1]);
            QByteArray words = mSmall;
            words.replace("\"percentage_measure_rating\": 50", "\"percentage_measure_rating\": " + deep);
            EXPECT_EQ(isRead(words), depth < 1000);
        }
    }
}

// Many things of a kind
// ------------------------------------------------------------------------------------------------------

TEST_F(HostileDocument, setsWithoutNumberArrive)
{
    QJsonArray sets;
    for (int number = 0; number < 40000; ++number)
        sets.append(number % 100 != 99 ? QJsonValue(QJsonObject{}) : QJsonValue(7));
    PatternDocument document;
    DocumentReport report;
    ASSERT_TRUE(documentFromText(compact({{text("format"), text("VorDocument 1")},
                                          {text("frameSets"), QJsonObject{{text("frames"), sets}}}}),
                                 document, &report));
    EXPECT_EQ(document.framesManager()->getFrameSets().count(), 39600);
    EXPECT_EQ(report.dropped.size(), 400);
}

TEST_F(HostileDocument, formulasWithoutAnElementAreToldInNoTime)
{
    QJsonArray specs;
    QJsonArray records;
    for (int number = 0; number < 5000; ++number) {
        specs.append(QJsonObject{{text("name"), text("Spec%1").arg(number)}});
        records.append(
            QJsonObject{{text("name"), text("Gone%1").arg(number)}, {text("formular_spec"), text("1")}});
    }
    const QJsonObject set{
        {text("set_name"), text("Many")}, {text("specs"), specs}, {text("formulars"), records}};
    PatternDocument document;
    DocumentReport report;
    ASSERT_TRUE(
        documentFromText(compact({{text("format"), text("VorDocument 1")},
                                  {text("frameSets"), QJsonObject{{text("frames"), QJsonArray{set}}}}}),
                         document, &report));
    EXPECT_EQ(str(report.dropped.last()), "The set \"Many\": and 4980 more.");
}

// One set of several is damaged
// ------------------------------------------------------------------------------------------------------

class DamagedSet : public testing::Test
{
protected:
    static constexpr int kSets = 4;

    DamagedSet()
    {
        PatternDocument document;
        document.setSizes(documents::sevenNames(), 4);
        for (int number = 0; number < kSets; ++number)
            fill(document, qPrintable(text("Set %1").arg(number)), qPrintable(text("Piece %1").arg(number)));
        PatternDocument settled; // with lists that fit the sizes
        EXPECT_TRUE(documentFromText(documentToText(document), settled));
        mWhole = parsed(documentToText(settled));
    }

    QJsonArray sets(const QJsonObject &document) const
    {
        return document.value(text("frameSets")).toObject().value(text("frames")).toArray();
    }

    QJsonObject withSet(int number, const QJsonValue &set) const
    {
        QJsonObject document = mWhole;
        QJsonArray all = sets(document);
        all.replace(number, set);
        document.insert(text("frameSets"), QJsonObject{{text("frames"), all}});
        return document;
    }

    // Reads a document of which one set is damaged; true when that one is lost. The rest is as it was.
    bool isLost(int damaged, const QJsonValue &set)
    {
        PatternDocument document;
        DocumentReport report;
        EXPECT_TRUE(documentFromText(compact(withSet(damaged, set)), document, &report)) << str(report.error);
        const bool lost = !document.lostSets().isEmpty();
        EXPECT_EQ(document.framesManager()->getFrameSets().count(), lost ? kSets - 1 : kSets);

        const QByteArray written = documentToText(document, &report);
        EXPECT_EQ(str(report.error), "");
        QJsonArray others = sets(parsed(written));
        if (lost) {
            EXPECT_EQ(others.last(), set); // as it stood there
            others.removeLast();
            EXPECT_EQ(str(report.dropped.join(text("|"))), ""); // the reading told it
        } else {
            others.removeAt(damaged);
        }
        QJsonArray sound = sets(mWhole);
        sound.removeAt(damaged);
        EXPECT_EQ(compact({{text("sets"), others}}), compact({{text("sets"), sound}}));

        // All pieces are there, and the skeletons that cannot be tied for now as well.
        EXPECT_TRUE(parsed(written).value(text("pieces")) == mWhole.value(text("pieces")));
        for (int number = 0; number < kSets; ++number) {
            const GabaritObject *const contour =
                document.pieces()[static_cast<std::size_t>(number)]->firstGabarit();
            const bool isTied = const_cast<GabaritObject *>(contour)->controlSkeleton() != nullptr;
            EXPECT_EQ(isTied, document.lostSkeleton(contour).isUndefined());
            if (number != damaged || lost) {
                EXPECT_EQ(isTied, number != damaged);
            }
        }

        PatternDocument again;
        EXPECT_TRUE(documentFromText(written, again));
        const QByteArray second = documentToText(again);
        EXPECT_TRUE(documentFromText(second, again));
        EXPECT_EQ(str(documentToText(again)), str(second));
        return lost;
    }

    QJsonObject mWhole;
};

TEST_F(DamagedSet, costsItselfAndNothingElse)
{
    for (int damaged = 0; damaged < kSets; ++damaged) {
        const QByteArray set = compact(sets(mWhole).at(damaged).toObject());
        for (const char *reference : {"\"center_name\":\"Front\"", "\"link_name\":\"Girth\"",
                                      "\"frame_element\":\"Side\"", "\"frame_element\":\"Front:Chest\""}) {
            QByteArray words = set;
            const int place = words.indexOf(reference);
            ASSERT_GE(place, 0) << reference;
            words.replace(place, static_cast<int>(qstrlen(reference)),
                          QByteArray(reference).replace("\":\"", "\":\"Gone"));
            EXPECT_TRUE(isLost(damaged, parsed(words))) << reference;
        }
        EXPECT_TRUE(isLost(damaged, 7));
        EXPECT_FALSE(isLost(damaged, sets(mWhole).at(damaged)));
    }
}

TEST_F(DamagedSet, comesBackWithItsPiecesOnceItIsMended)
{
    QJsonObject set = sets(mWhole).at(2).toObject();
    const QJsonValue centers = set.take(text("centers"));
    PatternDocument document;
    ASSERT_TRUE(documentFromText(compact(withSet(2, set)), document));
    EXPECT_EQ(document.framesManager()->getFrameSets().count(), kSets - 1);

    QJsonObject written = parsed(documentToText(document));
    QJsonArray all = sets(written);
    set.insert(text("centers"), centers);
    all.replace(kSets - 1, set); // the lost one is written last
    written.insert(text("frameSets"), QJsonObject{{text("frames"), all}});
    DocumentReport report;
    ASSERT_TRUE(documentFromText(compact(written), document, &report));
    EXPECT_EQ(str(report.dropped.join(text("|"))), "");
    EXPECT_EQ(parsed(documentToText(document)).value(text("pieces")), mWhole.value(text("pieces")));
}

TEST_F(DamagedSet, ofAnyDamageCostsNoMoreThanItself)
{
    Random random(53);
    const QJsonValue values[] = {QJsonValue(QJsonValue::Null),
                                 QJsonValue(QJsonValue::Undefined),
                                 QJsonValue(false),
                                 QJsonValue(-3),
                                 QJsonValue(77.5),
                                 QJsonValue(text("Gone")),
                                 QJsonValue(QJsonArray{1}),
                                 QJsonValue(QJsonObject{})};
    int lost = 0;
    for (int round = 0; round < 80; ++round) {
        const int damaged = below(random, kSets);
        const QJsonValue value = values[below(random, 8)];
        std::vector<QJsonValue> wrong;
        forEachValue(
            sets(mWhole).at(damaged), [&](const QJsonValue &) { return value; },
            [&](const QJsonValue &set) { wrong.push_back(set); });
        const QJsonValue set = wrong[static_cast<std::size_t>(below(random, static_cast<int>(wrong.size())))];
        if (set.isUndefined())
            continue;
        SCOPED_TRACE(str(QJsonDocument(QJsonArray{set}).toJson(QJsonDocument::Compact)));
        lost += isLost(damaged, set) ? 1 : 0;
    }
    EXPECT_GT(lost, 5);
}

} // namespace
