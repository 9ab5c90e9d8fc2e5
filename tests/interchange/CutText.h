#pragma once

#include "interchange/otio/OtioImport.h"

#include <QJsonArray>
#include <QJsonObject>

#include <string>
#include <vector>

/// Cuts for tests, one function per object of the file format. All lengths are in frames at 24 a
/// second unless a rate is given.
namespace CutText
{

QJsonObject time(double value, double rate = 24);
QJsonObject range(double start, double duration, double rate = 24);
QJsonObject clip(const char *name, double duration, double rate = 24);
QJsonObject gap(double duration, double rate = 24);
QJsonObject dissolve(double inOffset, double outOffset, double rate = 24);
QJsonObject track(const std::vector<QJsonObject> &children, const char *kind = "Video", const char *name = "");
QJsonObject stack(const std::vector<QJsonObject> &tracks);
QJsonObject timeline(const std::vector<QJsonObject> &tracks);

/// The same object with one field more or another value in it.
QJsonObject with(QJsonObject object, const char *field, const QJsonValue &value);
QJsonObject without(QJsonObject object, const char *field);

OtioReading read(const QJsonObject &cut);

/// "A 1-24 (1-12 13-24) | B 25-30 (b 1-6)" and, where there are any, lines for transitions, layers
/// and sounds, each under the one before.
std::string print(const OtioPlan &plan);
/// The plan of a timeline with this one track.
std::string planOf(const std::vector<QJsonObject> &items);
/// "loss effects: track 1, item 1 (A)" for each note, one a line.
std::string print(const std::vector<ImportNote> &notes);
/// The codes of the notes, in order, with a space between.
std::string codes(const OtioReading &reading);

} // namespace CutText
