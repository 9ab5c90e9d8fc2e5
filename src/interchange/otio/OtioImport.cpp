#include "interchange/otio/OtioImport.h"

#include "interchange/ImportNotes_p.h"
#include "interchange/LooseJson_p.h"
#include "interchange/otio/OtioPlanner_p.h"
#include "interchange/otio/OtioReader_p.h"

namespace
{

/// True for what begins as no JSON text would, as edit lists and tables do.
bool isOtherText(const QByteArray &bytes)
{
    const QByteArray start = bytes.left(4096).trimmed();
    return !start.isEmpty() && start.front() > ' ' && !QByteArray("{[\"").contains(start.front());
}

} // namespace

QStringList OtioImport::lossCodes()
{
    return {QStringLiteral("bad-value"), QStringLiteral("collection-rest"), QStringLiteral("disabled-sound"),
        QStringLiteral("empty-timeline"), QStringLiteral("nested-on-layer"), QStringLiteral("nested-too-deep"),
        QStringLiteral("nested-track"), QStringLiteral("no-frame"), QStringLiteral("no-length"),
        QStringLiteral("other-track"), QStringLiteral("refused"), QStringLiteral("too-large"),
        QStringLiteral("too-late"), QStringLiteral("transition-at-edge"), QStringLiteral("transition-beside-gap"),
        QStringLiteral("transition-doubled"), QStringLiteral("transition-in-shot"),
        QStringLiteral("transition-in-sound"), QStringLiteral("transition-no-frame"),
        QStringLiteral("transition-no-room"), QStringLiteral("transition-on-layer"), QStringLiteral("trimmed-away"),
        QStringLiteral("unknown-schema")};
}

OtioReading OtioImport::read(const QByteArray &bytes, const OtioOptions &options)
{
    OtioReading reading;
    const LooseJson json = LooseJson::parse(bytes);
    if (json.hasError()) {
        const QString message = isOtherText(bytes)
            ? OtioText::tr("this is no OpenTimelineIO cut, which would begin with \"{\"; an EDL or another kind of "
                           "text is not read")
            : json.error;
        reading.error = {message, json.line, json.column};
        return reading;
    }

    ImportNotes notes(options.onNote);
    if (json.notFinite > 0) {
        notes.change("number-not-finite", QString(),
            OtioText::tr("numbers that are infinite or none at all, read as absent: %1").arg(json.notFinite));
    }
    if (json.longIntegers > 0) {
        notes.change("number-too-long", QString(),
            OtioText::tr("integers beyond 64 bits, read as the nearest floating number: %1").arg(json.longIntegers));
    }
    OtioCut cut;
    OtioReader reader(json.outline, notes);
    if (reader.read(json.root, cut))
        reading.plan = OtioPlanner(json, notes).plan(cut, options.hasRate ? &options.rate : nullptr);
    else
        reading.error.message = reader.error();
    reading.notes = notes.take();
    return reading;
}
