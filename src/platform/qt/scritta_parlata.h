// Who speaks for the labels that show values, and for those that are read out.
#pragma once

#include <QAccessibleWidget>
#include <QLabel>

namespace platform {

/// A value is told with the name that the label was given: "Totale: 12".
class ScrittaParlata : public QAccessibleWidget {
public:
    explicit ScrittaParlata(QLabel* scritta);
    /// A label may be made one that is read out after somebody asked for this.
    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QString text(QAccessible::Text quale) const override;

private:
    QLabel* scritta_;
};

/// From the first call on, one of them speaks for each such label.
void parla_per_scritte();

}  // namespace platform
