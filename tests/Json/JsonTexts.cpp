#include "JsonTexts.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <boost/exception/get_error_info.hpp>
#include <boost/throw_exception.hpp>
#include <sstream>

using namespace VorSystem;

namespace jsontest
{

XJsonObject object(const char *text)
{
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(QByteArray(text).replace('\'', '"'), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString() << " in " << text;
    return XJsonObject::fromJsonObject(document.object());
}

std::string text(const XJsonObject &object)
{
    return QJsonDocument(object.toJsonObject())
        .toJson(QJsonDocument::Compact)
        .replace('"', '\'')
        .toStdString();
}

XJsonObject managerObject(std::initializer_list<const char *> sets)
{
    XJsonArray array;
    for (const char *set : sets)
        array.append(object(set));
    XJsonObject manager;
    manager.insert(QStringLiteral("frames"), array);
    return manager;
}

std::string setNames(const GestFrames &manager)
{
    std::string names;
    for (const FrameSet *set : manager.getFrameSets())
        names += set->name().toStdString() + " ";
    return names;
}

std::string str(const ValuesAccordingSizes &values)
{
    std::ostringstream out;
    if (values.mValues.isEmpty())
        out << "(" << values.mNestIndex << ")";
    for (int size = 0; size < values.mValues.count(); ++size) {
        const bool isNest = size == values.mNestIndex;
        out << (size == 0 ? "" : " ") << (isNest ? "[" : "") << values.mValues.at(size)
            << (isNest ? "]" : "");
    }
    return out.str();
}

namespace
{

std::string str(const ElementEquation *node)
{
    if (node == nullptr)
        return "null";
    std::ostringstream out;
    const auto nameOf = [node] {
        return node->element == nullptr ? "?" : node->element->fullName().toStdString();
    };
    switch (node->contents) {
    case ElemValue: out << node->value; break;
    case ElemMeasure: out << nameOf() << ".m"; break;
    case ElemLevel: out << nameOf() << ".l"; break;
    case ElemParenthesis: out << "[" << str(node->sonLeft) << "]"; break;
    case ElemAdd: out << "(" << str(node->sonLeft) << "+" << str(node->sonRight) << ")"; break;
    case ElemSubtract: out << "(" << str(node->sonLeft) << "-" << str(node->sonRight) << ")"; break;
    case ElemMultiply: out << "(" << str(node->sonLeft) << "*" << str(node->sonRight) << ")"; break;
    case ElemDivide: out << "(" << str(node->sonLeft) << "/" << str(node->sonRight) << ")"; break;
    case ElemNone:
    default: out << "kind " << int(node->contents);
    }
    return out.str();
}

} // namespace

std::string str(const TreeEquations *formula)
{
    return formula == nullptr ? "none" : str(formula->root);
}

std::string described(const NonFatalError &error)
{
    const char *const *unit = boost::get_error_info<boost::throw_file>(error);
    const int *line = boost::get_error_info<boost::throw_line>(error);
    const char *const *function = boost::get_error_info<boost::throw_function>(error);
    std::ostringstream out;
    out << error.what() << " | " << (unit == nullptr ? "?" : *unit) << " | " << (line == nullptr ? 0 : *line)
        << " | " << (function == nullptr ? "?" : *function);
    return out.str();
}

} // namespace jsontest
