#pragma once

#include "coordination/AppCatalogue.h"
#include "ui/Card.h"
#include "ui/Retranslated.h"

#include <vector>

class QPushButton;
class QVBoxLayout;

namespace veridane {
class Workspace;
}

namespace veridane::ui {

class CatalogueRow;
class Label;
class PictureLoader;
class WrapLabel;

/// Whose program this is, and what else there is of theirs.
class MakerCard : public Retranslated<Card> {
    Q_OBJECT

public:
    /// All of them must outlive the card.
    MakerCard(PictureLoader& pictures, Workspace& workspace, const Theme& theme,
              QWidget* parent = nullptr);

    void setApps(std::vector<MirefoldApp> apps);
    void setCatalogueVisible(bool isVisible);

private:
    void makeCatalogue();
    void open(const MirefoldApp& app);
    void retranslate() final;

    PictureLoader& m_pictures;
    Workspace& m_workspace;
    const Theme& m_theme;
    std::vector<MirefoldApp> m_apps;

    WrapLabel* m_service;
    WrapLabel* m_invitation;
    QWidget* m_catalogue = nullptr;
    Label* m_catalogueTitle = nullptr;
    QVBoxLayout* m_rowColumn = nullptr;
    std::vector<CatalogueRow*> m_rows;
    QPushButton* m_moreApps;
};

} // namespace veridane::ui
