// hostile [--quick] [WORD]: makes each hostile file whose name has WORD in it, loads it in a process of its
// own with little stack and limits of memory and time, walks over the catalog and drops it. Prints a table in
// Markdown, with a bare pass of the XML reader for comparison, and fails when a load does not end as it
// should. --quick takes small files and a smaller stack, which no recursion over their content fits into.
#include "hostile/HostileFiles.h"

#include "catalogs/building/CatalogLoader.h"
#include "fuzz/MemoryFile.h"
#include "support/CatalogWalk.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <fcntl.h>
#include <new>
#include <sys/resource.h>
#include <sys/wait.h>
#include <utility>
#include <vector>

using namespace Orvida::Catalogs;
using namespace Orvida::Tests;

namespace {

constexpr int outOfMemory = 4;

// How a process of ours ended.
struct Ending
{
    int status = 0;
    double seconds = 0; // of the processor
    QByteArray output;  // "peak in MB|result"
};

struct Limits
{
    rlim_t stackBytes;
    rlim_t memoryBytes;
    rlim_t seconds;
};

constexpr Limits measured = {1 << 20, rlim_t(8) << 30, 600};
// Sanitizers reserve more addresses than there is memory, and have larger frames.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr Limits quick = {1 << 20, RLIM_INFINITY, 300};
#else
constexpr Limits quick = {256 << 10, rlim_t(1) << 30, 120};
#endif

QStringList profilesOf(int count)
{
    QStringList profiles;
    for (int number = 0; number < count; ++number)
        profiles.append(QStringLiteral("P%1").arg(number));
    return profiles;
}

// The children of this program: what they find goes to standard output behind the peak of their memory.

void answer(const QByteArray &result)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        std::abort();
    const QByteArray text = status.readAll();
    const qint64 kilobytes = text.mid(text.indexOf("VmHWM:") + 6).trimmed().split(' ').first().toLongLong();
    std::fprintf(stderr, "%lld|%s", kilobytes / 1024, result.constData());
}

QByteArray resultOfLoad(const QString &path, int profiles)
{
    const CatalogSptr catalog = CatalogLoader().loadCatalog(path, QStringLiteral("hostile"));
    Orvida::Fuzz::stopAt(faultOf(*catalog, profilesOf(profiles)));
    return catalog->IsValid() ? QByteArray::number(catalog->getCatalogItems().size()) + " items" : "refused";
}

QByteArray resultOfReading(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return "no file";
    QXmlStreamReader reader(&file);
    while (!reader.atEnd())
        reader.readNext();
    return reader.hasError() ? "refused" : "read";
}

// Loads `count` variants of the small catalog.
template <typename Variant>
QByteArray loadedOf(int count, Variant variant)
{
    int loaded = 0;
    for (int number = 0; number < count; ++number) {
        const QByteArray content = variant(number);
        const auto *bytes = reinterpret_cast<const std::uint8_t *>(content.constData());
        const QString path = Orvida::Fuzz::pathOfBytes(bytes, static_cast<std::size_t>(content.size()));
        loaded += resultOfLoad(path, 2) != "refused";
    }
    return QByteArray::number(loaded) + " of " + QByteArray::number(count) + " loaded";
}

// Each bit of each byte flipped, and each byte replaced by those that mean most.
QByteArray resultOfChanges()
{
    static const QByteArray replacements("\0\xFF<>&\"/ ", 8);
    const QByteArray content = smallCatalog();
    return loadedOf(content.size() * 16, [&content](int number) {
        QByteArray changed = content;
        char &byte = changed.data()[number / 16];
        const int change = number % 16;
        byte = change < 8 ? static_cast<char>(byte ^ 1 << change) : replacements.at(change - 8);
        return changed;
    });
}

QByteArray resultOfPrefixes()
{
    const QByteArray content = smallCatalog();
    return loadedOf(content.size(), [&content](int size) { return content.left(size); });
}

int make(const HostileFile &kind, int count, const QString &path)
{
    QFile file(path);
    const QByteArray content = kind.content(count);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() ? 0 : 1;
}

// Arguments: a task, a path, a kind of file and a count.
int runTask(const QByteArray &task, const QString &path, int kind, int count)
{
    try {
        if (task == "make")
            return make(hostileFiles().at(kind), count, path);
        answer(task == "load"      ? resultOfLoad(path, hostileFiles().at(kind).hasManyProfiles ? count : 1)
               : task == "read"    ? resultOfReading(path)
               : task == "changes" ? resultOfChanges()
                                   : resultOfPrefixes());
        return 0;
    } catch (const std::bad_alloc &) {
        return outOfMemory;
    }
}

// The process that starts them.

void limit(const Limits &limits)
{
    const std::pair<__rlimit_resource, rlim_t> values[] = {{RLIMIT_STACK, limits.stackBytes},
                                                           {RLIMIT_AS, limits.memoryBytes},
                                                           {RLIMIT_CPU, limits.seconds},
                                                           {RLIMIT_CORE, 0}};
    for (const auto &[resource, value] : values) {
        const rlimit both = {value, value};
        setrlimit(resource, &both);
    }
}

Ending run(const Limits &limits, const QByteArrayList &arguments)
{
    int ends[2];
    if (pipe(ends) != 0)
        std::abort();
    const pid_t child = fork();
    if (child == 0) {
        limit(limits);
        dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO); // where orphans are reported
        dup2(ends[1], STDERR_FILENO);
        close(ends[0]);
        close(ends[1]);
        const QByteArray program = "/proc/self/exe";
        std::vector<char *> values = {const_cast<char *>(program.constData())};
        for (const QByteArray &argument : arguments)
            values.push_back(const_cast<char *>(argument.constData()));
        values.push_back(nullptr);
        execv(program.constData(), values.data());
        _exit(127);
    }
    close(ends[1]);
    Ending ending;
    QFile output;
    if (output.open(ends[0], QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        ending.output = output.readAll();
    rusage usage{};
    wait4(child, &ending.status, 0, &usage);
    for (const timeval &time : {usage.ru_utime, usage.ru_stime})
        ending.seconds += static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    return ending;
}

QByteArray resultOf(const Ending &ending)
{
    if (ending.status == 0)
        return ending.output.split('|').last();
    if (WIFEXITED(ending.status))
        return WEXITSTATUS(ending.status) == outOfMemory ? "out of memory" : "failed";
    return "ended by signal " + QByteArray::number(WTERMSIG(ending.status)) + ' ' + ending.output.left(200);
}

// "1.23 s | 45 MB", without the peak of what did not end well.
QByteArray costOf(const Ending &ending)
{
    const QByteArray peak = ending.status == 0 ? ending.output.split('|').first() + " MB" : QByteArray();
    return QByteArray::number(ending.seconds, 'f', 2) + " s | " + peak;
}

bool check(const HostileFile &file, int kind, bool isQuick, const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    const QByteArray count = QByteArray::number(isQuick ? file.quickCount : file.count);
    const QByteArrayList target = {name, QByteArray::number(kind), count};
    const Ending made = run({RLIM_INFINITY, RLIM_INFINITY, RLIM_INFINITY}, QByteArrayList{"make"} + target);
    const Limits &limits = isQuick ? quick : measured;
    const Ending loaded = run(limits, QByteArrayList{"load"} + target);
    const QByteArray bareCost =
        isQuick ? QByteArray("| ") : costOf(run(limits, QByteArrayList{"read"} + target));
    const QByteArray expected =
        file.isLoaded ? QByteArray::number(file.itemsPerCount * count.toInt() + file.moreItems) + " items"
                      : QByteArray("refused");
    const QByteArray result = resultOf(loaded);
    std::printf("| %s %s | %.1f MB | %s | %s | %s%s |\n", count.constData(), file.name,
                double(QFileInfo(path).size()) / 1e6, bareCost.constData(), costOf(loaded).constData(),
                result.constData(), result == expected ? "" : ", WRONG");
    std::fflush(stdout);
    return made.status == 0 && result == expected;
}

bool checkVariants(const char *task, bool isQuick)
{
    const Ending ending = run(isQuick ? quick : measured, {task, "", "0", "0"});
    std::printf("| %s of a small catalog | %d bytes | | | %s | %s |\n", task, smallCatalog().size(),
                costOf(ending).constData(), resultOf(ending).constData());
    return ending.status == 0 && !ending.output.contains("|0 of");
}

} // namespace

int main(int argc, char **argv)
{
    if (argc == 5)
        return runTask(argv[1], QFile::decodeName(argv[2]), QByteArray(argv[3]).toInt(),
                       QByteArray(argv[4]).toInt());
    const bool isQuick = argc > 1 && QByteArray(argv[1]) == "--quick";
    const QByteArray word = argc == (isQuick ? 3 : 2) ? argv[argc - 1] : "";
    if (argc > (isQuick ? 3 : 2) || word.startsWith('-')) {
        std::fputs("usage: hostile [--quick] [WORD]\n", stderr);
        return 3;
    }
    // The worst orders are made for one order of hashes.
    qputenv("QT_HASH_SEED", "0");
    const QTemporaryDir folder;
    // No messages: many of the files hold values that are told of.
    qputenv("QT_LOGGING_RULES", "*=false");
    std::puts("| case | file | bare pass | its peak | load, walk and end | peak | result |\n"
              "|---|---|---|---|---|---|---|");
    bool isSound = true;
    int chosen = 0;
    for (const char *task : {"changes", "prefixes"}) {
        if (QByteArray(task).contains(word)) {
            isSound = checkVariants(task, isQuick) && isSound;
            ++chosen;
        }
    }
    const QString path = folder.filePath(QStringLiteral("catalog.xml"));
    for (int kind = 0; kind < hostileFiles().size(); ++kind) {
        if (QByteArray(hostileFiles().at(kind).name).contains(word)) {
            isSound = check(hostileFiles().at(kind), kind, isQuick, path) && isSound;
            ++chosen;
        }
    }
    if (chosen == 0)
        std::fprintf(stderr, "hostile: no file has '%s' in its name\n", word.constData());
    return chosen == 0 ? 3 : isSound ? 0 : 1;
}
