// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Controls/KeyboardFocus.h"

#include <QProxyStyle>

class QCheckBox;
class QLineEdit;

namespace platform {

/// The one look of all controls, to be given to the application before it makes any. It draws the
/// toolkit's own controls; what a control does, and what assistive technology reads of it, stays
/// the toolkit's. All colours come from the palette.
///
/// Controls whose focus is a ring around them have room for it inside their geometry; layouts place
/// them by what is seen.
class ControlStyle final : public QProxyStyle {
    Q_OBJECT

public:
    /// What a scroll bar needs beside the content.
    static constexpr int scrollBarBreadth = 12;
    /// Between the edge of a flat button and what stands in it.
    static constexpr int flatButtonPadding = 5;
    /// Combo boxes are equally wide.
    static constexpr int comboBoxWidth = 172;

    ControlStyle();

    /// Has a check box look like a switch. To be called before it is shown.
    static void makeSwitch(QCheckBox& checkBox);

    /// Shows what is to be typed while there is no text, and names the field by it.
    static void setPrompt(QLineEdit& field, const QString& prompt);

    using QProxyStyle::polish;
    void polish(QWidget* widget) override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option,
                         const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    KeyboardFocus keyboardFocus_;
};

} // namespace platform
