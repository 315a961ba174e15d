// What must hold for every text that is read as a formula. Shared by the fuzzer and the replay of its corpus.
#pragma once

#include <VorCore/VorCore.h>
#include <VorFrames/VorFrames.h>
#include <VorJson/VorJson.h>

#include <QByteArray>
#include <QLocale>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace formula_checks
{

/// Ends the program: the fuzzer keeps the input, the test reports the crash.
inline void require(bool holds)
{
    if (!holds)
        std::abort();
}

/// A set with an element of every kind that a formula can name; its frame has values in three sizes.
struct Scene {
    Scene()
    {
        set.newSpec(QStringLiteral("a"));
        set.newLink(QStringLiteral("Front Width"));
        VorSystem::FrameFrame *const frame =
            set.newFrame(QStringLiteral("b"), set.newCenter(QStringLiteral("c")));
        frame->getMeasureBySizes()->mValues = {0.0, 1.5, 3.0};
        frame->getLevelBySizes()->mValues = {-1.0, 1e-06, 1e300};
    }
    VorSystem::FrameSet set{QStringLiteral("s"), nullptr};
};

inline bool sameValue(double a, double b)
{
    return std::memcmp(&a, &b, sizeof a) == 0 || (std::isnan(a) && std::isnan(b));
}

/// Everything that can be done with a formula, whatever its references. Errors of the one kind are answers.
inline void use(VorSystem::TreeEquations &formula, VorSystem::FrameSet &set)
{
    using VorSystem::AssertionError;

    VorSystem::TreeEquations copy(formula);
    const bool sound = formula.verifierImplicitUnits();
    require(copy.verifierImplicitUnits() == sound);

    QString printed;
    try {
        printed = formula.toString();
        require(copy.toString() == printed);
        require(!printed.isEmpty());
    } catch (const AssertionError &) {
        require(!sound); // only a bare name cannot be printed
        return;
    }
    for (const short size : {short(-1), short(0), short(2)}) {
        try {
            const double value = formula.evaluate(size);
            require(sameValue(copy.evaluate(size), value));
        } catch (const AssertionError &) {
            require(formula.mentions(nullptr)); // only an unresolved reference has no value
        }
    }
    VorSystem::QListEx<VorSystem::Evaluation> evaluations;
    formula.addEvaluationsInList(evaluations);
    try {
        formula.fullyDefinedFormula();
        VorSystem::TreeEquations back;
        const VorSystem::XJsonObject object = formula.toJson();
        back.root->fromJson(object.value(QStringLiteral("root")).toObject(), &set);
        require(back.toJson() == object || printed.contains(QLatin1String("nan")));
        require(formula.setAdapter(&set));
    } catch (const AssertionError &) {
        require(formula.mentions(nullptr));
    }
    std::unique_ptr<VorSystem::TreeEquations> again;
    try {
        again.reset(VorSystem::TreeEquations::parse(printed, &set, true));
    } catch (const AssertionError &) {
    }
    try {
        formula.determineImplicitUnits();
    } catch (const AssertionError &) {
    }
}

/// The first byte chooses locale, unit and whether units are settled, the second whether the rest is UTF-8 or
/// plain UTF-16. True when the rest is a formula.
inline bool check(const QByteArray &input)
{
    if (input.size() < 2)
        return false;
    static VorSystem::VorCoreApplication application;
    static const char *const locales[] = {"C", "en_US", "de_DE", "fr_FR", "pl_PL", "ar_EG"};
    static const VorSystem::LengthUnit units[] = {VorSystem::LengthUnit::centimetre(),
                                                  VorSystem::LengthUnit::millimetre(),
                                                  VorSystem::LengthUnit::inch()};
    const unsigned choice = static_cast<unsigned char>(input.at(0));
    QLocale::setDefault(QLocale(QString::fromLatin1(locales[choice % 6])));
    application.setLengthUnit(units[choice / 6 % 3]);
    const bool settleUnits = choice / 18 % 2 != 0;
    const QByteArray rest = input.mid(2);
    QString typed = QString::fromUtf8(rest);
    if (input.at(1) % 2 != 0) {
        typed.resize(rest.size() / 2);
        std::memcpy(typed.data(), rest.constData(), static_cast<std::size_t>(typed.size()) * 2);
    }

    Scene scene;
    std::unique_ptr<VorSystem::TreeEquations> formula;
    try {
        formula.reset(VorSystem::TreeEquations::parse(typed, &scene.set, settleUnits));
    } catch (const VorSystem::AssertionError &) {
        require(settleUnits); // nothing else about a text is an error
    }
    const bool isFormula = formula != nullptr;
    if (isFormula)
        use(*formula, scene.set);
    QLocale::setDefault(QLocale::c());
    return isFormula;
}

} // namespace formula_checks
