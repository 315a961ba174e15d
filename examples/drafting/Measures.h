// Body measurements of the sizes that the bundled documents are drafted in.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace drafting
{

/// A woman's figure of 168 cm; centimetres.
struct Measures {
    QString size;
    double bust = 0.0;
    double waist = 0.0;
    double hip = 0.0;
    double backLength = 0.0; ///< nape to waist
    double armLength = 0.0;
    double insideLeg = 0.0;
};

/// Sizes 34 to 46. Bust, waist and hip are those of the European size designation for clothes: 4 cm a size.
std::vector<Measures> sizes();

constexpr short kNest = 4; ///< size 40, counted from 1

} // namespace drafting
