#include "tools/page/PageLists.h"

#include <algorithm>

namespace Orvida::Tools {

namespace {

using Entries = PageLists::Entries;
using Shared::ListItem;

// Of a list that every code uses, the others are only counted.
constexpr int mostUsers = 50;

bool isSameEntry(const ListItem &a, const ListItem &b)
{
    return a.value() == b.value() && a.caption() == b.caption() && a.itemText() == b.itemText();
}

bool areSameEntries(const Entries &a, const Entries &b)
{
    return std::equal(a.cbegin(), a.cend(), b.cbegin(), b.cend(), isSameEntry);
}

void writeEntries(const Entries &entries, bool isRecorded, HtmlWriter &out)
{
    out << R"(<div class="scroll"><table class="grid"><thead><tr>)"
        << (isRecorded ? "<th scope=\"col\">recorded" : "")
        << R"(<th scope="col">caption<th scope="col">item text)"
        << "<tbody>\n";
    for (const ListItem &entry : entries) {
        out << "<tr>";
        if (isRecorded)
            out << "<td><code>" << entry.value().toString() << "</code>";
        out << "<td>" << entry.caption() << "<td>" << entry.itemText() << "\n";
    }
    out << "</table></div>";
}

} // namespace

PageLists::PageLists(const PageSource &source) : m_source(source)
{
    for (const auto &listClass : source.file.records().m_listClasses) {
        m_lists[listClass.classId];
        m_keys.insert({listClass.classId, listClass.profileFk}, listClass.pk);
    }
}

void PageLists::add(const QString &classId, int profile, const Entries &entries, const QString &user)
{
    List &list = m_lists[classId];
    if (!list.entries.contains(profile))
        list.entries.insert(profile, entries);
    if (list.lastUser == user)
        return;
    list.lastUser = user;
    if (++list.userCount <= mostUsers)
        list.users << user;
}

void PageLists::write(HtmlWriter &out) const
{
    for (auto list = m_lists.cbegin(); list != m_lists.cend(); ++list)
        writeList(list.key(), *list, out);
}

void PageLists::writeList(const QString &classId, const List &list, HtmlWriter &out) const
{
    const QString anchor = PageAnchors::ofList(classId);
    out << "<article id=\"" << anchor << "\"><h3>" << classId << "</h3>\n";
    m_source.findings.writeOf(anchor, out);
    out << "<p>" << (list.userCount == 0 ? "No field is known to offer this list." : "Used by ");
    for (const QString &user : list.users) {
        out.startLink(user);
        out << user << "</a> ";
    }
    if (list.userCount > list.users.size())
        out << "and " << list.userCount - list.users.size() << " more";
    out << "</p>\n";
    ProfileVariants<Entries> variants;
    for (int profile = 0; profile < m_source.profiles.size(); ++profile) {
        const Entries entries = list.userCount > 0 ? list.entries.value(profile)
                                                   : textsOf(classId, m_source.profiles.at(profile));
        if (!entries.isEmpty())
            variants.add(profile, entries, areSameEntries);
    }
    for (const Variant<Entries> &variant : variants.variants()) {
        out << "<div class=\"values\"";
        writeProfiles(variant.profiles, {}, out);
        out << ">";
        writeProfileNames(variant.profiles, allProfiles(m_source.profiles.size()), m_source, out);
        writeEntries(variant.thing, list.userCount > 0, out);
        out << "</div>\n";
    }
    out << "</article>\n";
}

// What the file has for the list.
Entries PageLists::textsOf(const QString &classId, const QString &profile) const
{
    Entries entries;
    const auto key = m_keys.constFind({classId, profile});
    if (key == m_keys.constEnd())
        return entries;
    auto items = m_source.file.records().m_listItems.value(*key);
    std::stable_sort(items.begin(), items.end(),
                     [](const auto &a, const auto &b) { return a.sortOrder < b.sortOrder; });
    for (const auto &item : qAsConst(items))
        entries << ListItem(QVariant(), item.caption, item.item);
    return entries;
}

} // namespace Orvida::Tools
