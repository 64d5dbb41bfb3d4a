#pragma once

#include "scene/Plug.h"
#include "ui/commands/SceneViewer.h"
#include "ui/model/Element.h"

namespace host::ui {

class RangeSlider;

/// Lets the fields of a control show attributes and set them. A person's edit is one step to undo,
/// also the whole of a drag; what changes in the scene is shown when the host is idle. Fields whose
/// attribute cannot be set, or is gone, are grey. Belongs to its element; main thread only.
class AttributeLink : public QObject
{
    Q_OBJECT
public:
    struct Part
    {
        QPointer<QWidget> field;
        QPointer<RangeSlider> slider; ///< shows the same number, or how light the colour is
        /// What the attribute is for each choice of the field; empty: choices count from 0.
        QVector<int> numbers;
        scene::NodePointer node;
        QString key; ///< see scene::Plug
        Value value; ///< of the attribute when it was shown last
        Value shown; ///< what the field made of it
        bool isGrey = false;
    };

    /// The element's link; null when it has none.
    static AttributeLink* Of(const Element& element);
    /// The fields of an element that can show attributes, without attributes. Empty when there are
    /// none.
    static QVector<Part> PartsOf(const Element& element);
    /// Fields that were linked before and are not among the parts stay linked.
    static void Add(Element& element, const QVector<Part>& parts);
    static void RemoveFrom(Element& element) { delete Of(element); }

    ~AttributeLink() override;

    /// "box.translateX" for every part; "" for one that is gone.
    QStringList AttributeNames() const;
    static void SetPlug(Part& part, const scene::Plug& plug);

private:
    explicit AttributeLink(Element& element);
    void OnCalling(const QString& flag);
    void Refresh();

    QVector<Part> m_parts;
    SceneViewer m_viewer;
    bool m_dragging = false; ///< the undo queue has a chunk open
};

} // namespace host::ui
