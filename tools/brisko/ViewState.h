#pragma once

#include "FocusOrder.h"
#include "Interaction.h"
#include "LiveScene.h"

#include <QPointF>

#include <optional>

namespace Command {

/// What a window does with a scene, without a window: who is under the pointer, held down and focused, and what there
/// is to say about it.
class ViewState {
public:
    /// @param scene  must outlive this; none of its nodes has been touched
    explicit ViewState(LiveScene& scene);

    /// @param point  in pixels of the scene, from the top left of the content of its root; nothing where the pointer
    /// has
    ///               left the window
    void movePointer(std::optional<QPointF> point);
    /// The pointer goes down where it is: what is there is held down and gets the focus, if it can have it.
    void press();
    void release();
    /// Moves the focus to the next node, or with -1 to the one before.
    void moveFocus(int step);
    /// Holds the focused node down.
    void pressFocused();
    /// The scene or its sheets were read again.
    void sceneChanged(bool isOtherScene);

    /// The node that the status is about: the one under the pointer, else the focused one, else the root.
    const Brisko::Styleable& subject() const;
    /// The lines to show: of the status and the help, where they are switched on, and why a file is not shown, always.
    QStringList lines() const;
    void toggleStatus() { m_showsStatus = !m_showsStatus; }
    void toggleHelp() { m_showsHelp = !m_showsHelp; }

private:
    template <typename Work>
    void measured(Work work);

    LiveScene& m_scene;
    Interaction m_interaction;
    FocusOrder m_focusOrder;
    std::optional<QPointF> m_pointer;
    RestyleCost m_cost;
    bool m_showsStatus = false;
    bool m_showsHelp = false;
};

} // namespace Command
