#include "StorageRuns.h"
#include "sizes.h"

#include "infofields/PKC_ExtraInfoFieldDescList.h"
#include "infofields/PKC_InfoFieldList.h"

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

/// Captions of one panel, each asked to choose its id.
void insertCaptions(benchmark::State &state)
{
    for (auto _ : state) {
        PKC_InfoFieldList fields;
        for (auto i = state.range(0); i > 0; --i)
            fields.insertInfoField(PKC_InfoFieldDesc::TEXT, PKC_InfoFieldDesc::endId, PKC_InfoFieldDesc::endId);
        benchmark::DoNotOptimize(fields.size());
    }
}
BENCHMARK(insertCaptions)->Name("insert captions")->Arg(10)->Arg(100)->Arg(1000);

/// The same at once, each before a caption that is not there.
void reserveCaptions(benchmark::State &state)
{
    PKC_ExtraInfoFieldDescList descs;
    for (auto i = state.range(0); i > 0; --i)
        descs.emplace_back(PKC_InfoFieldDesc::TEXT, QString(), 1);
    for (auto _ : state) {
        PKC_InfoFieldList fields;
        fields.reserveExtraInfoFields(descs);
        benchmark::DoNotOptimize(fields.size());
    }
}
BENCHMARK(reserveCaptions)->Name("reserve captions")->Arg(1000)->Arg(10000)->Arg(100000);

} // namespace
