#include "catalogs/building/ProfileResolution_p.h"

#include "catalogs/reading/CatalogXMLParser.h"

#include <QSet>

#include <algorithm>

namespace Orvida::Catalogs {

namespace {

using Profiles = QList<CatalogParserProfile>;
using Extensions = QList<CatalogParserProfileExtended>;
using Mark = bool CatalogParserProfileExtended::*;

// Which of several profiles with equal sort orders comes first decides the choice, so the sort is part of
// what hosts see: an introspective sort with median of three and insertion for ranges of up to 16, so that up
// to 16 profiles keep their file order. The sort of GNU's standard library is exactly that; a test fails
// where it is not.
Profiles sortedProfiles(Profiles profiles)
{
    std::sort(profiles.begin(), profiles.end(),
              [](const CatalogParserProfile &a, const CatalogParserProfile &b) {
                  return a.sortOrder < b.sortOrder;
              });
    return profiles;
}

// The profile that the first extension with `mark` names; null without such an extension or profile. Later
// extensions with the mark are not looked at.
const CatalogParserProfile *markedProfile(const Profiles &profiles, const Extensions &extensions, Mark mark)
{
    const auto extension =
        std::find_if(extensions.cbegin(), extensions.cend(),
                     [mark](const CatalogParserProfileExtended &candidate) { return candidate.*mark; });
    if (extension == extensions.cend())
        return nullptr;
    const auto profile =
        std::find_if(profiles.cbegin(), profiles.cend(), [&extension](const CatalogParserProfile &candidate) {
            return candidate.pk == extension->profileFk;
        });
    return profile == profiles.cend() ? nullptr : &*profile;
}

} // namespace

QString resolveProfile(const CatalogXMLParser &parser)
{
    if (parser.m_profiles.isEmpty())
        return QString();
    const Profiles profiles = sortedProfiles(parser.m_profiles);
    for (const Mark mark :
         {&CatalogParserProfileExtended::isStart, &CatalogParserProfileExtended::isOrvida}) {
        if (const CatalogParserProfile *profile = markedProfile(profiles, parser.m_profileExtensions, mark))
            return profile->pk;
    }
    return profiles.first().pk;
}

QVector<CatalogProfile> profilesInOrderOfChoice(const CatalogXMLParser &parser)
{
    QVector<CatalogProfile> result;
    QSet<QString> keys;
    for (const CatalogParserProfile &profile : sortedProfiles(parser.m_profiles)) {
        if (keys.contains(profile.pk))
            continue;
        keys.insert(profile.pk);
        result.append({profile.pk, profile.description});
    }
    return result;
}

} // namespace Orvida::Catalogs
