#include "tools/page/ProfileVariants.h"

#include <numeric>

namespace Orvida::Tools {

void writeProfiles(const QVector<int> &profiles, const QVector<int> &all, HtmlWriter &out)
{
    if (profiles == all)
        return;
    const char *separator = " data-p=\"";
    for (const int profile : profiles) {
        out << separator << profile;
        separator = " ";
    }
    out << "\"";
}

void writeProfileNames(const QVector<int> &profiles, const QVector<int> &all, const PageSource &source,
                       HtmlWriter &out)
{
    if (profiles != all)
        out << " <i class=\"in\">" << source.namesOf(profiles) << "</i>";
}

QVector<int> allProfiles(int count)
{
    QVector<int> profiles(count);
    std::iota(profiles.begin(), profiles.end(), 0);
    return profiles;
}

} // namespace Orvida::Tools
