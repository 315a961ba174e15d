// The smallest program that embeds VorFrames: a manager with one set, printed.

#include <QTextStream>
#include <VorFrames/VorFrames.h>

using namespace VorSystem;

int main()
{
    GestFrames manager;
    auto *bodice = new FrameSet(manager.getFrameSetValidName(QStringLiteral("Bodice")), &manager);
    manager.addFrameSet(bodice, -1); // the manager deletes it

    FrameCenter *front = bodice->newCenter(QStringLiteral("Front"));
    bodice->newFrame(QStringLiteral("Chest"), front);
    bodice->newFrame(QStringLiteral("Waist"), front);

    QTextStream out(stdout);
    for (FrameSet *set : manager.getFrameSets()) {
        out << set->name() << '\n';
        for (FrameFrame *frame : set->getFrames())
            out << "  " << frame->fullName() << '\n';
    }
}
