// One command line while it is taken apart: options, arguments, and what holds for every command.
#pragma once

#include "Commands.h"
#include "Console.h"

#include <QCommandLineParser>
#include <QStringList>

namespace room
{

class Line
{
public:
    Line(const QStringList &words, Console &console) : mWords(words), mConsole(console) {}

    void describe(const QString &arguments, const QString &what, const QString &example)
    {
        mArguments = arguments;
        mWhat = what;
        mExample = example;
    }
    void value(const char *name, const char *of, const char *what)
    {
        const QString text = QString::fromLatin1(name);
        mParser.addOption({text.size() == 1 ? QStringList{text, QStringLiteral("output")} : QStringList{text},
                           QString::fromLatin1(what), QString::fromLatin1(of)});
    }
    void flag(const char *name, const char *what)
    {
        mFlags << QStringLiteral("--") + QString::fromLatin1(name);
        mParser.addOption({QString::fromLatin1(name), QString::fromLatin1(what)});
    }
    void target()
    {
        value("o", "FILE", "Write the changed document to FILE.");
        flag("in-place", "Write it over the document that was read.");
    }

    /// False when help was asked for and printed. Refuses options that are not known and a wrong number of
    /// arguments.
    bool parse(int fewest, int most);

    QString text(const char *name) const { return mParser.value(QString::fromLatin1(name)); }
    bool isSet(const char *name) const { return mParser.isSet(QString::fromLatin1(name)); }
    QString argument(int index) const { return mParser.positionalArguments().value(index); }
    const LengthStyle &style() const { return mStyle; }
    Console &console() const { return mConsole; }

    void fill(Desk &desk) const
    {
        desk.console = &mConsole;
        desk.style = mStyle;
    }
    void fillErrand(Errand &errand) const
    {
        fill(errand);
        errand.document = argument(0);
        errand.output = text("o");
        errand.isInPlace = isSet("in-place");
    }
    void fillElement(ElementOptions &options) const
    {
        fillErrand(options);
        options.element = argument(1);
        options.kind = text("kind");
    }
    /// What a script hands on to its steps.
    QStringList globals() const
    {
        QStringList words;
        for (const char *name : {"unit", "locale"}) {
            if (isSet(name))
                words << QStringLiteral("--") + QString::fromLatin1(name) << text(name);
        }
        for (const char *name : {"yes", "no"}) {
            if (isSet(name))
                words << QStringLiteral("--") + QString::fromLatin1(name);
        }
        return words;
    }

private:
    QString help() const;

    // A place such as -3,4 or a formula such as -Measure(Waist) behind an argument is no option.
    QStringList placesLast(const QStringList &words) const;

    // Unit, locale and answers hold for the whole program while the command runs.
    void settle();

    QStringList mWords;
    Console &mConsole;
    QString mArguments;
    QString mWhat;
    QString mExample;
    QStringList mFlags{QStringLiteral("-h"), QStringLiteral("--help")};
    QCommandLineParser mParser;
    LengthStyle mStyle;
};

} // namespace room
