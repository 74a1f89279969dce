// The menu groups that the host shows, and the manager through which commands change them.
#pragma once

#include "host/customization.h"
#include "refhost/core/menugroup.h"
#include "refhost/core/package.h"
#include "refhost/core/result.h"

#include <functional>
#include <set>
#include <string>
#include <vector>

class QueldConfig;

namespace quelhost {

// A group with the file that it came from, as the list names it.
struct ShownGroup
{
    std::wstring path;
    MenuGroup group;
    // Whether it is shown although it is not in the list: its entry could not be stored, and it
    // stays for this run.
    bool unlisted = false;
};

class ShownMenuGroups final : public QuelCustomizationManager
{
public:
    using Report = std::function<void(const Fault&)>;
    using Reader = std::function<PackageReading(const QString& path)>;

    // `report` is told why a file is not shown, once for each file until it has left the list.
    // REQUIRES: `config` outlives this object.
    ShownMenuGroups(QueldConfig& config, Report report);

    // As host/customization.h promises. Groups stand in the order of the list, those that are not
    // in it behind.
    void refresh() override;
    bool loadMenuFile(const QuString& path, QuString& group) override;

    [[nodiscard]] const std::vector<ShownGroup>& groups() const { return m_groups; }

    // `changed` is called after each refresh and load, whether anything changed or not. Empty for
    // nobody.
    void setListener(std::function<void()> changed) { m_changed = std::move(changed); }

    // How packages are read: by readPackage(), until another way is given.
    void setReader(Reader reader) { m_reader = std::move(reader); }

    // The entries of the list, empty ones included.
    [[nodiscard]] std::vector<std::wstring> listedPaths() const;
    // Those that are not shown: missing, or refused when they were opened.
    [[nodiscard]] std::vector<std::wstring> notShownPaths() const;

private:
    [[nodiscard]] const ShownGroup* find(const std::wstring& path) const;
    bool show(const std::wstring& path, bool unlisted);
    void complain(const std::wstring& path, const std::vector<Fault>& faults);
    void tellListener() const;
    void forgetUnlisted(const std::vector<std::wstring>& listed);

    QueldConfig& m_config;
    Report m_report;
    Reader m_reader = readPackage;
    std::function<void()> m_changed;
    std::vector<ShownGroup> m_groups;
    std::set<std::wstring> m_complained;
};

} // namespace quelhost
