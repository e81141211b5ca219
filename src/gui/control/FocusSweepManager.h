#pragma once

#include "gui/control/SweepWidgetStore.h"

#include <QObject>

/// Moves the focus over the controls of one area of the screen (a window's content, a panel) by arrow keys
/// and knob, and hands the knob to the control that OK has selected.
///
/// While navigation is on, arrows and knob move the focus. OK selects the control for editing: then
/// navigation is off, the knob changes the control, and the arrow keys are its own, until OK releases it.
class FocusSweepManager : public QObject {
    Q_OBJECT
public:
    using SweepWidgetStore = ::SweepWidgetStore;

    /// Where a step leads: towards the end or the start of a sweep; any other value leads nowhere.
    enum class Shift { Increment, Decrement };

    explicit FocusSweepManager(QObject* parent = nullptr);

    /// Takes the controls as the complete linear sweep, in this order; those of before go. Null and repeated
    /// ones are left out.
    void adoptLinearFocusSweep(std::vector<QWidget*>& controls, Qt::Orientation orientation);
    /// Takes the controls of an area as the complete linear sweep, in the order of tabs. Until groups are
    /// added, arrows lead to the neighbour in their direction.
    void adoptArea(QWidget& area);
    /// Adopts the area again, in which controls may have come.
    void refreshArea();
    QWidget* area() const { return m_area; }
    /// Adds a group in which the linear arrows move first. Ignored unless validateSweep() accepts it.
    void setLinearSubFocusSweep(const std::vector<QWidget*>& controls);
    /// Adds a group in which the other pair of arrows moves. Ignored unless validateSweep() accepts it.
    void setNonLinearFocusSweep(const std::vector<QWidget*>& controls);
    /// Whether a group is in order: not empty, its controls all in the complete sweep and each there once.
    bool validateSweep(const std::vector<QWidget*>& controls) const;
    /// Empties the sweeps, forgets the focused control and turns navigation off.
    void clear();

    std::vector<QWidget*> getCompleteLinearSweep() const;
    int getCompleteLinearSweepSize() const { return static_cast<int>(getCompleteLinearSweep().size()); }
    int getSweepIndex() const { return m_index; }
    QWidget* getFocusedWidget() const { return m_focused; }
    bool isWidgetInCompleteLinearSweep(const QWidget* widget) const;
    /// Whether it is a control of the sweep or inside of one.
    bool isWidgetBeingManaged(const QWidget* widget) const { return managedOwner(widget) != nullptr; }

    bool wrapsAround() const { return m_wrapAround; }
    void setWrapAround(bool wrap) { m_wrapAround = wrap; }
    bool areNewNavigationEventsAllowed() const { return m_navigation; }
    void setAllowForNewNavigationEvents(bool allow);
    void allowOkPress(bool allow) { m_okAllowed = allow; }

    /// The next index of a sweep of that size.
    int shiftSweepIndex(Shift shift, int size, int index) const;
    void completeLinearSweepShift(Shift shift);
    void linearShift(Shift shift, bool useSubSweep);

    /// Notes which control has the focus, which it has by other means. One that is not managed is ignored.
    void setWidgetInFocus(const QWidget* widget);
    /// Gives the focus to a control of the sweep.
    void setNewFocusWidget(QWidget* widget);
    void clearFocusedWidget();

    /// For editing by knob and keys, and back to navigation.
    void selectFocusWidget();
    void deselectFocusWidget();
    void toggleFocusWidgetSelection();
    bool isFocusWidgetSelected() const { return m_focused && !m_navigation; }

public slots:
    void upPressed();
    void downPressed();
    void leftPressed();
    void rightPressed();
    void shaftTurned(bool clockwise);
    void okPressed();

signals:
    void focusWidgetChanged(QWidget* widget);
    void focusWidgetDeselected();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// For tests: whether an on-screen keyboard covers the controls.
    virtual bool isKeyboardVisible() const;

private:
    void arrowPressed(Qt::Key arrow);
    bool followsNeighbours() const;
    void shiftToNeighbour(Qt::Key arrow);
    void doShift(Shift shift, const SweepWidgetStore& store);
    void shiftWidgetInFocusIfValidForSweepWidgetStore(Shift shift, const SweepWidgetStore& store);
    QWidget* nextUsable(const std::vector<QWidget*>& sweep, Shift shift, int start, int from) const;
    QWidget* managedOwner(const QWidget* widget) const;
    bool handleOkForSpecialWidgetTypes(QWidget* widget);
    void noteFocusIn(QWidget* widget, Qt::FocusReason reason);

    QPointer<QWidget> m_area;
    std::vector<QPointer<QWidget>> m_sweep;
    SweepWidgetStore m_linearSubSweep;
    SweepWidgetStore m_nonLinearSweep;
    QPointer<QWidget> m_focused;
    int m_index = 0;
    Qt::Orientations m_orientation;
    bool m_wrapAround = true;
    bool m_navigation = false;
    bool m_okAllowed = true;
};
