// Stored documents of a given number of elements, made with Qt's classes alone.
#pragma once

#include <QJsonObject>
#include <string>

/// A document of one set with that many elements, 10 sizes each. shape is one of
///   usual     20 frames to a center, a link, a segment and a spec beside each center, every third frame in
///             the link; a formula on every fourth frame and on every spec
///   axis      the same with all frames on one center
///   segments  the same as usual, and a formula on every segment
/// Ends the program for another.
QJsonObject sampleDocument(const std::string &shape, int elements);
