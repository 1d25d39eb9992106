#include "Report.h"

#include <ostream>

#include "OwnerCatalogue.h"

namespace tessel::owners {

namespace {

std::string sections(const NamedOwner& owner)
{
    return standing(owner.conduct, owner.section);
}

std::string sections(const NamedRequestor& requestor)
{
    return standing(requestor.conduct, requestor.section) + ", tests " + std::string(requestor.tested);
}

template <class Entries>
void listGroup(std::ostream& output, std::string_view title, const Entries& entries)
{
    output << title << "\n";
    for (const auto& entry : entries)
        output << "  " << entry.name << " (ICCCM " << sections(entry) << ")\n      " << entry.description
               << "\n";
    output << "\n";
}

template <class Entries>
void tabulateGroup(std::ostream& output, std::string_view title, std::string_view other,
                   const Entries& entries)
{
    output << "### " << title << "\n\n"
           << "| name | what it does | ICCCM | a robust " << other << " |\n|---|---|---|---|\n";
    for (const auto& entry : entries)
        output << "| `" << entry.name << "` | " << entry.description << " | " << sections(entry) << " | "
               << entry.expectation << " |\n";
    output << "\n";
}

} // namespace

void report(std::ostream& output, const NamedRequestor& requestor, const Observation& observation)
{
    output << (observation.isGood ? "ok    " : "FAIL  ") << requestor.name << "  (" << requestor.tested
           << "): " << observation.seen << std::endl;
}

void list(std::ostream& output)
{
    for (const OwnerGroup& group : ownerGroups())
        listGroup(output, group.title, group.entries);
    for (const RequestorGroup& group : requestorGroups())
        listGroup(output, group.title, group.entries);
}

void listAsMarkdown(std::ostream& output)
{
    for (const OwnerGroup& group : ownerGroups())
        tabulateGroup(output, group.title, "program", group.entries);
    for (const RequestorGroup& group : requestorGroups())
        tabulateGroup(output, group.title, "owner", group.entries);
}

} // namespace tessel::owners
