#pragma once

#include <QTextDocument>
#include <QUrl>
#include <QVariant>

/// A document that opens no file and no address, whatever its text asks for.
class CaptionDocument : public QTextDocument
{
protected:
    QVariant loadResource(int, const QUrl &) override { return {}; }
};
