// The commands: one function each, which takes one struct of options, prints through the console and answers
// the exit code. Errors are thrown as Refusal, before anything is written.
#pragma once

#include "Console.h"
#include "Garment.h"
#include "Refusal.h"
#include "Table.h"

#include <optional>

namespace room
{

/// What every command knows.
struct Desk {
    Console *console = nullptr;
    LengthStyle style;
};

/// A document that is changed, and where the result goes.
struct Errand : Desk {
    QString document;
    QString output; ///< empty together with isInPlace being false: nowhere, which is refused
    bool isInPlace = false;
};

struct DemoOptions : Desk {
    QString folder;
};
int demo(const DemoOptions &options);

struct NewOptions : Desk {
    QString document;
    QString name;
    QString sizes; ///< "34;36;38"
    QString nest;  ///< one of them; empty: the middle one
    bool isForced = false;
};
int newDocument(const NewOptions &options);

struct ImportOptions : Desk {
    QString file;
    QString output;
};
int import(const ImportOptions &options);

struct AddOptions : Errand {
    QString kind;
    QString name;
    QString piece;
    QString from;
    QString to;
    QString sides;
    QString displace;
    QString frames;
    QString share;
    QString ratios;
    QString formula;
    QString measures;
    QString csv;
    QString percentage;
    QString influence;
    bool isPerimeter = false;
};
int add(const AddOptions &options);
/// The part of add() for charts; the set that got them.
VorSystem::FrameSet *addCharts(const VorSystem::PatternDocument &document, const AddOptions &options);

struct ElementOptions : Errand {
    QString element;
    QString kind;
};
int remove(const ElementOptions &options);

struct RenameOptions : ElementOptions {
    QString newName;
};
int rename(const RenameOptions &options);

struct LockOptions : Errand {
    QString piece;
    bool isLocked = true;
};
int lock(const LockOptions &options);

struct ChangeOptions : ElementOptions {
    QString measure;
    QString level;
    QString measures;
    QString levels;
    bool isShift = false;
    bool isForecast = false;
};
int change(const ChangeOptions &options);

struct FormulaOptions : ElementOptions {
    QString text;
    bool isLevel = false;
    bool isNone = false;
};
int formula(const FormulaOptions &options);

struct ReevaluateOptions : Errand {
    bool isDryRun = false;
};
int reevaluate(const ReevaluateOptions &options);

struct ShowOptions : Desk {
    QString document;
    QString element;
    QString kind;
    QString form;
    QString points; ///< the piece of which points are listed
    bool withSteps = false;
};
int show(const ShowOptions &options);

struct CheckOptions : Desk {
    QString document;
    QString tolerance;
};
int check(const CheckOptions &options);

struct DrawOptions : Desk {
    QString document;
    QString output;
    QString before;
    QString sizes;
    QString stack;
    QString piece;
    bool isBare = false; ///< without skeleton
};
int draw(const DrawOptions &options);

/// From source into document.
struct TransferOptions : Errand {
    QString source;
    QString pieces; ///< names with semicolons between; empty: all
    QString set;    ///< only pieces of this set
    QString sourceOutput;
    bool merges = false;
    bool withValues = true;
    bool renamesSource = false;
};
int transfer(const TransferOptions &options);

struct RunOptions : Desk {
    QString script;
    QStringList globals; ///< options that every step inherits
};
int run(const RunOptions &options);

struct ExpectOptions : Desk {
    QString document;
    QString element;
    QString kind;
    QString measures;
    QString levels;
    QString tolerance;
};
int expect(const ExpectOptions &options);

/// Refuses an errand without a place for its result; told before anything is done.
void requireTarget(const Errand &errand);
/// Stores the result of an errand.
void store(const Errand &errand, const VorSystem::PatternDocument &document);

/// A formula for an element that may be stored there: read, with every name known, units that fit and no
/// circle; refuses in words otherwise. The caller owns it.
std::unique_ptr<VorSystem::TreeEquations> readFormula(const QString &text, VorSystem::FrameSet *set,
                                                      VorSystem::BaseFrame *holder, bool isLevel);

} // namespace room
