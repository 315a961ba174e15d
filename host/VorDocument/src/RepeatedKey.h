// Keys that stand twice in one object of a JSON text.
#pragma once

#include <QByteArray>

namespace VorSystem
{

/// The first key found to stand twice in its object, in quotation marks; empty when there is none. Spelled
/// with escapes or without, a key is the same. A text that is no JSON is searched as far as it can be
/// followed. Qt's parser keeps one of the two values without a word, and leaks the other.
QByteArray repeatedKey(const QByteArray &text);

} // namespace VorSystem
