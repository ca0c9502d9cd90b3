// generate-schema scrambled|readable OUT: the build's own program that makes the schemas for editors.
#include "docs/generator/FormatSchema.h"

#include <QFile>
#include <QSaveFile>

#include <cstdio>

using Orvida::Format::Form;

int main(int argc, char **argv)
{
    const QByteArray form = argc == 3 ? argv[1] : "";
    if (form != "scrambled" && form != "readable") {
        std::fputs("usage: generate-schema scrambled|readable OUT\n", stderr);
        return 3;
    }
    const QByteArray schema = schemaOf(form == "readable" ? Form::Readable : Form::Scrambled).toUtf8();
    QSaveFile output(QFile::decodeName(argv[2]));
    if (!output.open(QIODevice::WriteOnly) || output.write(schema) != schema.size() || !output.commit()) {
        std::fprintf(stderr, "generate-schema: %s: %s\n", argv[2], qUtf8Printable(output.errorString()));
        return 2;
    }
    return 0;
}
