// How libFuzzer changes the inputs of targets that read catalog files. Nearly every change of single bytes
// breaks the XML, and then no catalog is built. So half of the changes keep the markup: one value replaces
// another, which makes loops, orphans and equal keys, or lines with records are removed or repeated.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t *data, std::size_t size, std::size_t maxSize);

namespace {

using Random = std::minstd_rand;

// Directly after the next `before` that follows a random place, or the start of `text`.
std::string::const_iterator startOf(const std::string &text, char before, Random &random)
{
    const auto start = text.begin() + static_cast<std::ptrdiff_t>(random() % (text.size() + 1));
    const auto found = std::find(start, text.end(), before);
    return found == text.end() ? text.begin() : found + 1;
}

std::string partFrom(const std::string &text, std::string::const_iterator start, char after)
{
    return std::string(start, std::find(start, text.end(), after));
}

std::string withValueReplaced(std::string text, Random &random)
{
    const auto source = startOf(text, '>', random);
    const std::string value = partFrom(text, source, '<');
    const auto place = startOf(text, '>', random);
    return text.replace(static_cast<std::size_t>(place - text.begin()), partFrom(text, place, '<').size(),
                        value);
}

std::string withValueMutated(std::string text, Random &random)
{
    const auto place = startOf(text, '>', random);
    const std::string old = partFrom(text, place, '<');
    std::uint8_t value[64] = {};
    const std::size_t size = std::min(old.size(), sizeof(value));
    std::memcpy(value, old.data(), size);
    const std::size_t newSize = LLVMFuzzerMutate(value, size, sizeof(value));
    return text.replace(static_cast<std::size_t>(place - text.begin()), old.size(),
                        reinterpret_cast<const char *>(value), newSize);
}

std::string withLineRemoved(std::string text, Random &random)
{
    const auto place = startOf(text, '\n', random);
    return text.erase(static_cast<std::size_t>(place - text.begin()), partFrom(text, place, '\n').size());
}

std::string withLineRepeated(std::string text, Random &random)
{
    const auto source = startOf(text, '\n', random);
    const std::string line = partFrom(text, source, '\n') + '\n';
    const auto place = startOf(text, '\n', random);
    return text.insert(static_cast<std::size_t>(place - text.begin()), line);
}

} // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t *data, std::size_t size, std::size_t maxSize,
                                               unsigned int seed)
{
    Random random(seed);
    using Change = std::string (*)(std::string, Random &);
    constexpr Change changes[] = {withValueReplaced, withValueMutated, withLineRemoved, withLineRepeated};
    const std::size_t choice = random() % (2 * std::size(changes));
    if (choice >= std::size(changes))
        return LLVMFuzzerMutate(data, size, maxSize);
    const std::string changed = changes[choice](std::string(reinterpret_cast<char *>(data), size), random);
    if (changed.empty() || changed.size() > maxSize)
        return LLVMFuzzerMutate(data, size, maxSize);
    std::memcpy(data, changed.data(), changed.size());
    return changed.size();
}
