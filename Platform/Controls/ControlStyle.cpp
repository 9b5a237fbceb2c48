// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/ControlStyle.h"

#include "Platform/Controls/ButtonLook.h"
#include "Platform/Controls/ControlMarks.h"
#include "Platform/Controls/FieldLook.h"
#include "Platform/Controls/IndicatorLook.h"
#include "Platform/Controls/MenuLook.h"
#include "Platform/Controls/Motion.h"
#include "Platform/Controls/ScrollBarLook.h"
#include "Platform/Desktop/Compositing.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QStyleOption>

#include <chrono>

namespace platform {

namespace {

using namespace std::chrono_literals;
using Shape = IndicatorLook::Shape;

constexpr const char* switchProperty = "isSwitch";
constexpr auto slidingTime = 120ms;
constexpr int lineEditInset = 6; // and the two points that a line edit adds

bool isSwitch(const QWidget* widget) {
    return widget && widget->property(switchProperty).toBool();
}

Shape shapeOf(bool isRadio, const QWidget* widget) {
    return isRadio ? Shape::circle : isSwitch(widget) ? Shape::track : Shape::box;
}

/// The window that the list of a combo box opens in.
bool isComboBoxList(const QWidget* widget) {
    return widget && widget->inherits("QComboBoxPrivateContainer");
}

double knobPosition(const QStyleOption& option, const QWidget* widget) {
    const Motion* const motion = Motion::of(widget);
    const bool isOn = option.state & QStyle::State_On;
    return motion && motion->state() == Motion::Running ? motion->share() : isOn ? 1 : 0;
}

void polishSwitch(QWidget& control) {
    auto* const checkBox = qobject_cast<QCheckBox*>(&control);
    if (!checkBox || Motion::of(checkBox))
        return;
    auto* const motion = new Motion(*checkBox);
    motion->setEasingCurve(QEasingCurve::OutCubic);
    motion->jumpTo(checkBox->isChecked() ? 1 : 0);
    QObject::connect(checkBox, &QCheckBox::toggled, motion,
                     [motion](bool isOn) { motion->moveTo(isOn ? 1 : 0, slidingTime); });
}

bool isEnterKey(const QEvent& event) {
    const int key = static_cast<const QKeyEvent&>(event).key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

template <typename Option>
const Option& as(const QStyleOption* option) {
    const auto* const exact = qstyleoption_cast<const Option*>(option);
    Q_ASSERT(exact);
    return *exact;
}

} // namespace

ControlStyle::ControlStyle() : QProxyStyle(QStringLiteral("fusion")) {}

void ControlStyle::makeSwitch(QCheckBox& checkBox) {
    checkBox.setProperty(switchProperty, true);
}

void ControlStyle::setPrompt(QLineEdit& field, const QString& prompt) {
    constexpr QChar hairSpace(0x200A); // beside the cursor
    field.setPlaceholderText(hairSpace + prompt);
    field.setAccessibleName(prompt);
}

void ControlStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (qobject_cast<QMenu*>(widget) || isComboBoxList(widget))
        widget->setAttribute(Qt::WA_TranslucentBackground, isDisplayComposited());
    if (widget->inherits("QComboBoxListView"))
        static_cast<QAbstractScrollArea*>(widget)->viewport()->setAutoFillBackground(false);
    if (isSwitch(widget))
        polishSwitch(*widget);
    auto* const bar = qobject_cast<QScrollBar*>(widget);
    if (bar)
        ScrollBarLook::polish(*bar);
    const bool isControl = qobject_cast<QAbstractButton*>(widget) ||
                           qobject_cast<QComboBox*>(widget) ||
                           qobject_cast<QAbstractSpinBox*>(widget);
    if (isControl)
        keyboardFocus_.watch(*widget);
    if (isControl || bar)
        widget->installEventFilter(this);
    if (auto* const unseen =
            qobject_cast<QAbstractSpinBox*>(widget) ? widget->findChild<QLineEdit*>() : nullptr)
        unseen->setReadOnly(true);
}

bool ControlStyle::eventFilter(QObject* object, QEvent* event) {
    if (const auto* const bar = qobject_cast<QScrollBar*>(object)) {
        ScrollBarLook::follow(*bar, *event);
    } else if (auto* const button = qobject_cast<QPushButton*>(object)) {
        // The toolkit has Enter press a button in dialogs only.
        const bool isEnter = event->type() == QEvent::KeyPress && isEnterKey(*event);
        if (isEnter)
            button->click();
        return isEnter;
    } else if (event->type() == QEvent::Wheel) {
        // Who scrolls the window does not mean to choose.
        event->ignore();
        return true;
    }
    return false;
}

int ControlStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                              const QWidget* widget) const {
    switch (metric) {
    case PM_MenuPanelWidth:
        return 0;
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return MenuLook::inset;
    case PM_ScrollBarExtent:
        return scrollBarBreadth;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
        return 0;
    case PM_DefaultFrameWidth:
        return isComboBoxList(widget) ? MenuLook::inset
                                      : QProxyStyle::pixelMetric(metric, option, widget);
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int ControlStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* returned) const {
    switch (hint) {
    case SH_ComboBox_Popup:
        return 1; // the list is a menu over the box
    case SH_ScrollBar_ContextMenu:
    case SH_ScrollBar_Transient:
    case SH_ScrollBar_LeftClickAbsolutePosition:
        return 0;
    case SH_SpinBox_ClickAutoRepeatThreshold:
        return 400; // milliseconds
    case SH_SpinBox_ClickAutoRepeatRate:
        return 80;
    default:
        return QProxyStyle::styleHint(hint, option, widget, returned);
    }
}

QSize ControlStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                     const QSize& size, const QWidget* widget) const {
    switch (type) {
    case CT_PushButton:
        return ButtonLook::size(as<QStyleOptionButton>(option));
    case CT_CheckBox:
    case CT_RadioButton:
        return IndicatorLook::size(as<QStyleOptionButton>(option),
                                   shapeOf(type == CT_RadioButton, widget));
    case CT_ComboBox:
        return FieldLook::comboSize();
    case CT_SpinBox:
        return FieldLook::spinSize();
    case CT_LineEdit:
        return {size.width() + 2 * lineEditInset, FieldLook::height};
    case CT_MenuItem:
        return MenuLook::itemSize(as<QStyleOptionMenuItem>(option));
    default:
        return QProxyStyle::sizeFromContents(type, option, size, widget);
    }
}

QRect ControlStyle::subElementRect(SubElement element, const QStyleOption* option,
                                   const QWidget* widget) const {
    constexpr int margin = ControlMarks::ringMargin;
    switch (element) {
    case SE_CheckBoxClickRect:
    case SE_RadioButtonClickRect:
        return option->rect;
    case SE_CheckBoxLayoutItem:
    case SE_RadioButtonLayoutItem:
        return isSwitch(widget) ? ControlMarks::inside(option->rect)
                                : option->rect.adjusted(margin, 0, -margin, 0);
    case SE_PushButtonLayoutItem:
        return as<QStyleOptionButton>(option).features & QStyleOptionButton::Flat
                   ? option->rect
                   : ControlMarks::inside(option->rect);
    case SE_ComboBoxLayoutItem:
    case SE_SpinBoxLayoutItem:
        return ControlMarks::inside(option->rect);
    case SE_LineEditContents:
        return option->rect.adjusted(lineEditInset, 0, -lineEditInset, 0);
    default:
        return QProxyStyle::subElementRect(element, option, widget);
    }
}

QRect ControlStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                   SubControl part, const QWidget* widget) const {
    switch (control) {
    case CC_ComboBox:
        return FieldLook::comboPart(as<QStyleOptionComboBox>(option), part);
    case CC_SpinBox:
        return FieldLook::spinPart(as<QStyleOptionSpinBox>(option), part);
    case CC_ScrollBar:
        return ScrollBarLook::part(as<QStyleOptionSlider>(option), part);
    default:
        return QProxyStyle::subControlRect(control, option, part, widget);
    }
}

void ControlStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                 QPainter* painter, const QWidget* widget) const {
    painter->save();
    switch (element) {
    case PE_PanelMenu:
        MenuLook::paintPanel(*painter, *option,
                             widget && widget->testAttribute(Qt::WA_TranslucentBackground));
        break;
    case PE_PanelLineEdit:
        FieldLook::paintLine(*painter, *option);
        break;
    case PE_FrameMenu:
    case PE_FrameFocusRect:
        break; // the controls' own marks stand for them
    case PE_Frame:
        if (isComboBoxList(widget))
            break;
        [[fallthrough]];
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
    painter->restore();
}

void ControlStyle::drawControl(ControlElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
    const bool showsFocus = keyboardFocus_.isShownBy(widget);
    painter->save();
    switch (element) {
    case CE_PushButton:
        ButtonLook::paint(*painter, as<QStyleOptionButton>(option), showsFocus);
        break;
    case CE_CheckBox:
    case CE_RadioButton:
        IndicatorLook::paint(*painter, as<QStyleOptionButton>(option),
                             shapeOf(element == CE_RadioButton, widget), showsFocus,
                             knobPosition(*option, widget));
        break;
    case CE_ComboBoxLabel:
        FieldLook::paintComboText(*painter, as<QStyleOptionComboBox>(option));
        break;
    case CE_MenuItem:
        MenuLook::paintItem(*painter, as<QStyleOptionMenuItem>(option));
        break;
    case CE_MenuEmptyArea:
        break;
    default:
        QProxyStyle::drawControl(element, option, painter, widget);
    }
    painter->restore();
}

void ControlStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                      QPainter* painter, const QWidget* widget) const {
    const bool showsFocus = keyboardFocus_.isShownBy(widget);
    const Motion* const motion = Motion::of(widget);
    painter->save();
    switch (control) {
    case CC_ComboBox:
        FieldLook::paintCombo(*painter, as<QStyleOptionComboBox>(option), showsFocus);
        break;
    case CC_SpinBox:
        FieldLook::paintSpin(*painter, as<QStyleOptionSpinBox>(option), showsFocus);
        break;
    case CC_ScrollBar:
        ScrollBarLook::paint(*painter, as<QStyleOptionSlider>(option),
                             motion ? motion->share() : 1);
        break;
    default:
        QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
    painter->restore();
}

} // namespace platform
