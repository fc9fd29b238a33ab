// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <initializer_list>

namespace sablequill {

/// A section of a grouped form: rows on a rounded card, with a hairline between them.
class FormCard : public QWidget {
public:
    /// The card owns the rows and pads each.
    explicit FormCard(std::initializer_list<QWidget*> rows);

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// Sections below each other with the form's room around them, at the top of what they are given.
QWidget* groupedForm(std::initializer_list<QWidget*> sections);

} // namespace sablequill
