// Stored objects as text, and back: what the tests of this folder compare.
#pragma once

#include <QString>
#include <VorFrames/VorFrames.h>
#include <VorJson/VorJson.h>
#include <gtest/gtest.h>
#include <string>

namespace jsontest
{

/// The object that a JSON text spells, with ' in place of ".
VorSystem::XJsonObject object(const char *text);
/// Compact JSON text, keys sorted, with ' in place of ".
std::string text(const VorSystem::XJsonObject &object);

/// A manager object with sets, each given as text.
VorSystem::XJsonObject managerObject(std::initializer_list<const char *> sets);

/// The names of the sets of a manager, each followed by a blank.
std::string setNames(const VorSystem::GestFrames &manager);
/// The values with the nest in brackets: "38 [41] 44"; "(2)" for an empty list with nest 2.
std::string str(const VorSystem::ValuesAccordingSizes &values);
/// The tree by names, as "(S1.m+2)": m for measures, l for levels.
std::string str(const VorSystem::TreeEquations *formula);

/// What an operation throws, as "text | unit | line | function", "" when it throws nothing.
template<class Operation>
std::string thrown(Operation operation);
std::string described(const VorSystem::NonFatalError &error);

template<class Operation>
std::string thrown(Operation operation)
{
    try {
        operation();
    } catch (const VorSystem::AssertionError &error) {
        return described(error);
    }
    return {};
}

} // namespace jsontest
