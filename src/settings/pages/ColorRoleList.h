#pragma once

#include "settings/pages/ColorScheme.h"

#include <QListWidget>

/// The colour roles of one surface, each with a swatch of its colours; those that are not as built
/// in have a dot. Of several lists only the one with the chosen role shows a selection. Owned by
/// its page, as the scheme is.
/// Invariant: row i is key i of the surface.
class ColorRoleList : public QListWidget
{
    Q_OBJECT

public:
    ColorRoleList(const ColorScheme* scheme, ColorRole::Surface surface, QWidget* parent);

    ColorRole GetRole(int row) const;
    /// Selects the role, or nothing when it is none of these. Says nothing.
    void ShowRole(const ColorRole& role);
    /// After the scheme changed.
    void UpdateRoles();
    /// Marks the roles whose label or key contains the text; how many there are.
    int MarkMatches(const QString& text);
    /// Of those that are marked; one without a key when there is none.
    ColorRole GetFirstMatch() const { return GetRole(m_firstMatch); }

Q_SIGNALS:
    void RoleChosen(const ColorRole& role);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private Q_SLOTS:
    void OnSelectionChanged();

private:
    const ColorScheme* m_scheme; ///< not owned
    const ColorRole::Surface m_surface;
    int m_firstMatch = -1;
};
