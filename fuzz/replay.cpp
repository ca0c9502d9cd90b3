// replay FOLDER: runs every file of a corpus folder through a fuzz target, without the fuzzer. A finding ends
// the process; an empty folder is a failure.
#include <QDir>

#include <cstddef>
#include <cstdint>
#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fputs("usage: replay FOLDER\n", stderr);
        return 3;
    }
    const QFileInfoList files = QDir(QFile::decodeName(argv[1])).entryInfoList(QDir::Files, QDir::Name);
    for (const QFileInfo &info : files) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(info.fileName()));
        QFile file(info.filePath());
        if (!file.open(QIODevice::ReadOnly))
            return 2;
        const QByteArray content = file.readAll();
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(content.constData()),
                               static_cast<std::size_t>(content.size()));
    }
    return files.isEmpty() ? 1 : 0;
}
