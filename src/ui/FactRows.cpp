#include "ui/FactRows.h"

#include "model/ScanItem.h"
#include "platform/Language.h"
#include "platform/Locale.h"
#include "ui/FactRow.h"
#include "ui/Layouts.h"

#include <QLocale>
#include <QVBoxLayout>

namespace veridane::ui {
namespace {

std::string architectureText(const ArchitectureReport& report) {
    return report.architectures.size() < 2 ? report.summaryText()
                                           : localized("%@  (Universal)", report.summaryText());
}

std::optional<std::string> versionText(const ScanItem& item) {
    if (!item.version || !item.buildNumber)
        return item.version;
    return *item.version + " (" + *item.buildNumber + ")";
}

std::string sizeText(const ScanItem& item, const std::string& locale) {
    return item.sizeOnDisk ? formatByteCount(*item.sizeOnDisk, locale) : "—";
}

std::optional<std::string> dateText(const ScanItem& item, const std::string& locale) {
    if (!item.lastModified)
        return std::nullopt;
    return formatDate(*item.lastModified, locale);
}

} // namespace

FactRows::FactRows(const Theme& theme, QWidget* parent)
    : QWidget(parent), m_architecture(new FactRow(theme, "architecture")),
      m_vendor(new FactRow(theme, "vendor")),
      m_teamIdentifier(new FactRow(theme, "teamIdentifier")),
      m_bundleIdentifier(new FactRow(theme, "bundleIdentifier")),
      m_version(new FactRow(theme, "version")), m_category(new FactRow(theme, "category")),
      m_size(new FactRow(theme, "size")), m_modified(new FactRow(theme, "modified")),
      m_path(new FactRow(theme, "path", FactStyle::monospaced)) {
    auto* column = makeColumn(this);
    for (FactRow* row : {m_architecture, m_vendor, m_teamIdentifier, m_bundleIdentifier, m_version,
                         m_category, m_size, m_modified, m_path})
        column->addWidget(row);
}

void FactRows::showItem(const ScanItem& item) {
    const std::string locale = QLocale().name().toStdString();
    m_architecture->setFact(localized("Architektur"), architectureText(item.architecture));
    m_vendor->setFact(localized("Hersteller"), item.vendor.value_or(localized("unbekannt")));
    m_teamIdentifier->setFact(localized("Team-ID"), item.teamIdentifier);
    m_bundleIdentifier->setFact(localized("Bundle-ID"), item.bundleIdentifier);
    m_version->setFact(localized("Version"), versionText(item));
    m_category->setFact(localized("Kategorie / Nutzung"), item.categoryDescription);
    m_size->setFact(localized("Größe"), sizeText(item, locale));
    m_modified->setFact(localized("Geändert"), dateText(item, locale));
    m_path->setFact(localized("Pfad"), item.path);
}

} // namespace veridane::ui
