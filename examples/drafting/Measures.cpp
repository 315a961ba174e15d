#include "Measures.h"

namespace drafting
{

std::vector<Measures> sizes()
{
    std::vector<Measures> result;
    for (int step = 0; step < 7; ++step) {
        Measures m;
        m.size = QString::number(34 + 2 * step);
        m.bust = 80.0 + 4.0 * step;
        m.waist = 64.0 + 4.0 * step;
        m.hip = 88.0 + 4.0 * step;
        m.backLength = 40.4 + 0.2 * step;
        m.armLength = 58.4 + 0.2 * step;
        m.insideLeg = 78.0;
        result.push_back(m);
    }
    return result;
}

} // namespace drafting
