#pragma once

#include <QString>

/// The names of elements and attributes in a project file.
namespace ProjectFileKeys
{

/// Written into every file, and the newest that is read.
constexpr int formatVersion = 2;

inline const QString plotka = QStringLiteral("plotka");
inline const QString format = QStringLiteral("format");
inline const QString name = QStringLiteral("name");
inline const QString nextId = QStringLiteral("nextId");
inline const QString rate = QStringLiteral("rate");
inline const QString startTimecode = QStringLiteral("startTimecode");

inline const QString metadata = QStringLiteral("metadata");
inline const QString type = QStringLiteral("type");

inline const QString newRecords = QStringLiteral("newRecords");
inline const QString as = QStringLiteral("as");

inline const QString scene = QStringLiteral("scene");
inline const QString object = QStringLiteral("object");

inline const QString sequence = QStringLiteral("sequence");
inline const QString link = QStringLiteral("link");
inline const QString warp = QStringLiteral("warp");
inline const QString clip = QStringLiteral("clip");
inline const QString empty = QStringLiteral("empty");
inline const QString transition = QStringLiteral("transition");
inline const QString from = QStringLiteral("from");
inline const QString frames = QStringLiteral("frames");
inline const QString start = QStringLiteral("start");
inline const QString end = QStringLiteral("end");
inline const QString id = QStringLiteral("id");
inline const QString before = QStringLiteral("before");
inline const QString angle = QStringLiteral("angle");
inline const QString reverse = QStringLiteral("reverse");

inline const QString sounds = QStringLiteral("sounds");
inline const QString sound = QStringLiteral("sound");
inline const QString to = QStringLiteral("to");
inline const QString audible = QStringLiteral("audible");
inline const QString muted = QStringLiteral("muted");
inline const QString excluded = QStringLiteral("excluded");

inline const QString node = QStringLiteral("node");
inline const QString composite = QStringLiteral("composite");
inline const QString kind = QStringLiteral("class");
inline const QString number = QStringLiteral("number");
inline const QString keyword = QStringLiteral("keyword");
inline const QString parent = QStringLiteral("parent");
inline const QString source = QStringLiteral("source");
inline const QString sourceScene = QStringLiteral("sourceScene");
inline const QString enabled = QStringLiteral("enabled");
inline const QString locked = QStringLiteral("locked");
inline const QString collapsed = QStringLiteral("collapsed");
inline const QString lineArt = QStringLiteral("lineArt");
inline const QString cameraAlignment = QStringLiteral("cameraAlignment");
inline const QString firstAttribute = QStringLiteral("firstAttribute");

// Values of "class".
inline const QString group = QStringLiteral("group");
inline const QString element = QStringLiteral("element");
inline const QString animated = QStringLiteral("animated");
inline const QString module = QStringLiteral("module");

} // namespace ProjectFileKeys
