#include "StorageRuns.h"
#include "sizes.h"

#include <QFile>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <cstdlib>
#include <vector>

namespace
{

/// The sizes that fit all records of all panels comfortably.
#define PLOTKA_BENCH_FILLED(function, name) BENCHMARK(function)->Name(name)->Arg(1000)->Arg(10000)

const SavedProject &filledProject(const benchmark::State &state)
{
    return SavedProject::filled(panelsOf(state));
}

void openFilled(benchmark::State &state)
{
    runOpen(state, filledProject(state));
}
PLOTKA_BENCH_FILLED(openFilled, "open, records filled");

void saveFilled(benchmark::State &state)
{
    runSave(state, filledProject(state));
}
PLOTKA_BENCH_FILLED(saveFilled, "save, records filled");

void readPass(benchmark::State &state)
{
    runXmlPass(state, filledProject(state));
}
PLOTKA_BENCH_FILLED(readPass, "floor: XML pass, records filled");

/// Copies the file token by token; the time of reading it is not counted.
void writePass(benchmark::State &state)
{
    QFile file(filledProject(state).path());
    if (!file.open(QIODevice::ReadOnly))
        std::abort();
    struct Token {
        QXmlStreamReader::TokenType type;
        QString name;
        QXmlStreamAttributes attributes;
        QString text;
    };
    std::vector<Token> tokens;
    for (QXmlStreamReader xml(&file); !xml.atEnd(); xml.readNext())
        tokens.push_back({xml.tokenType(), xml.name().toString(), xml.attributes(), xml.text().toString()});

    const QTemporaryDir folder;
    for (auto _ : state) {
        QFile copy(folder.filePath(QStringLiteral("copy.xml")));
        if (!copy.open(QIODevice::WriteOnly | QIODevice::Truncate))
            std::abort();
        QXmlStreamWriter xml(&copy);
        for (const Token &token : tokens) {
            if (token.type == QXmlStreamReader::StartElement) {
                xml.writeStartElement(token.name);
                for (const QXmlStreamAttribute &attribute : token.attributes)
                    xml.writeAttribute(attribute.name().toString(), attribute.value().toString());
            } else if (token.type == QXmlStreamReader::EndElement) {
                xml.writeEndElement();
            } else if (token.type == QXmlStreamReader::Characters) {
                xml.writeCharacters(token.text);
            }
        }
    }
}
PLOTKA_BENCH_FILLED(writePass, "floor: XML writing, records filled");

} // namespace
