#pragma once

#include "Gorvel/ArrayMap.h"
#include "Gorvel/HostExport.h"
#include "Ondex/LayerSet.h"
#include "Ondex/Serializable.h"
#include "Pemmit/Vector.h"

#include <QByteArray>
#include <QFlags>
#include <QList>
#include <QString>

#include <functional>
#include <memory>

namespace Gorvel {
class BinaryData;
}

namespace Ondex {

class Node;
class StyleValue;
class TransitionAnim;

/// A named value of a node that keeps one value per layer; the highest layer that holds one is effective.
///
///     Ondex::AttributeT<float> width(&node, "width", 100.f);
///     width.set(50.f, Ondex::Attribute::StyleLayer, Ondex::Attribute::VU_PXS);
///     width.asFloat(nullptr, Ondex::Attribute::EffectiveLayer); // 50
///
/// An attribute registers with its host node when it is made and leaves it when it is destroyed. The host deletes the
/// attributes that it still has when it goes, but not those marked as owned by a shorthand: the shorthand does that.
/// Not copyable; used on the thread that owns the node.
class BRISKO_HOST_EXPORT Attribute : public Serializable {
public:
    /// Number of a layer; a higher one outranks a lower one.
    using Layer = int;
    static constexpr Layer EffectiveLayer = -1;     ///< asks for the value of the highest layer that holds one
    static constexpr Layer DefaultLayer = 0;        ///< what holds where nothing was set
    static constexpr Layer StyleLayer = 1;          ///< normal declarations of style sheets
    static constexpr Layer UserLayer = 2;           ///< program code
    static constexpr Layer ImportantStyleLayer = 3; ///< important declarations of style sheets
    static constexpr Layer AnimationLayer = 4;      ///< a running transition

    /// Unit of a number, as stored; the numeric codes are fixed.
    enum ValueUnit { VU_UNKNOWN = 0, VU_PXS = 1, VU_PERCENTAGE = 2, VU_EMS = 3, VU_EXS = 4 };

    /// What an archive asks for when it writes an attribute.
    enum SerializationOption {
        SerializeUserLayer = 0x0,     ///< the user layer, where it holds a value
        SerializeEffectiveValue = 0x1 ///< the effective value, unless only the default layer holds one
    };
    Q_DECLARE_FLAGS(SerializationOptions, SerializationOption)

    /// Makes an attribute called @p name and adds it to @p host, which may be null.
    Attribute(Node* host, const QByteArray& name);
    ~Attribute() override;

    // The virtual operations of this class and of Serializable come in a fixed order: derived classes of other
    // libraries rely on their places in the table.
    void serialize(Archive& archive) const override;
    bool deserialize(const ArchiveElement& element) override;
    bool deserializeXML(const DOMElement& element) override;
    /// Delivers an event to this attribute; a node hands it to those who subscribed.
    virtual void eventProcess(const QByteArray& event, Gorvel::BinaryData& data);
    /// The value of @p layer as a number. @p ok, which may be null, tells whether there is one; else 0.
    virtual float asFloat(bool* ok, Layer layer) const;
    /// The same as an integer, cut towards 0. What does not fit into one is not saturated: @p ok tells false, and the
    /// answer is 0.
    virtual int asInt(bool* ok, Layer layer) const;
    /// The value of @p layer as text that set(const QString&) reads back; empty where there is none.
    virtual QString asString(bool* ok, Layer layer) const;
    /// Sets the value of a layer, converted to the type of the attribute. This class takes nothing; AttributeT says
    /// what the others take.
    /// @return false when the attribute cannot take the value, or the layer is none that can be set; the value is then
    ///         unchanged
    virtual bool set(const StyleValue& value, Layer layer);
    /// The same with four numbers, each with its unit; a missing unit is none.
    virtual bool set(const Pemmit::Vector4T<float>& value, Layer layer, QList<ValueUnit> units);
    /// The same with three numbers.
    virtual bool set(const Pemmit::Vector3T<float>& value, Layer layer, QList<ValueUnit> units);
    /// The same with two numbers.
    virtual bool set(const Pemmit::Vector2T<float>& value, Layer layer, QList<ValueUnit> units);
    /// The same with a text, which is read as the type of the attribute has it.
    virtual bool set(const QString& value, Layer layer, ValueUnit unit);
    /// The same with an integer.
    virtual bool set(int value, Layer layer, ValueUnit unit);
    /// The same with a number. Attributes of integers take whole numbers in their range only, and refuse all others.
    virtual bool set(float value, Layer layer, ValueUnit unit);
    /// Name of the value type, such as "float"; empty for an attribute without a value of its own.
    virtual QByteArray type() const;
    /// Sets on layer @p to what layer @p from holds; clears @p to where @p from holds nothing.
    virtual void copyValueFromLayer(Layer from, Layer to);
    /// Whether a layer above the default one holds a value.
    virtual bool isChanged() const;
    /// Removes the value of @p layer. The default layer keeps its value.
    virtual void clearValue(Layer layer);
    /// Splits @p value into the parts of the longhands of this attribute.
    /// @return true when this is a shorthand that took the value; @p parts then has an entry per longhand.
    ///         False otherwise: the value is meant for this attribute itself.
    /// An override changes nothing: a style pass asks before it writes, and may ask more often than it writes.
    virtual bool handleShorthand(const StyleValue& value, Gorvel::ArrayMap<Attribute*, StyleValue>& parts);
    /// Whether that layer holds a value: always the default layer and, asked for as the effective one, any; the others
    /// from set() to clearValue(). An attribute without a value of its own, a shorthand say, answers false; a tuple
    /// does as its components do.
    virtual bool isValueDefinedOnLayer(Layer layer) const;
    /// The child attribute called @p name, the first one where there are several; null where there is none.
    virtual Attribute* attribute(const QByteArray& name) const;
    /// Makes the effective value the default value and clears the layers above.
    virtual void setAsDefaults();
    /// Arms the transition of this attribute; seconds. Two zeros disarm it. A running transition goes on.
    virtual void setTransitionAnim(float duration, float delay);
    /// Calls the listeners: by role, lowest first, within a role in the order they were added.
    virtual void emitChange();
    /// Tells the host that this attribute is about to go. Called once, by the destructor.
    virtual void emitDelete();

    /// Whether this is a Node.
    bool isNode() const { return m_isNode; }
    Node* host() const { return m_host; }
    const QByteArray& name() const { return m_name; }
    /// Renames the attribute; its host finds it under the new name from then on.
    void setName(const QByteArray& name);

    /// The compound attribute that this longhand belongs to and that deletes it; null for all others.
    Attribute* ownerShorthand() const { return m_hasExtra ? ownerOfExtra() : m_ownerShorthand; }
    void setOwnerShorthand(Attribute* shorthand);

    /// Has @p callback called at every change of the effective value. The @p role is its place among the listeners of
    /// this attribute: lower ones are called first, equal ones in the order they were added. The library's own, the
    /// nodes and compound attributes that follow their attributes, have 2: what is to see their work done takes a
    /// higher one, what is to come before it a lower one.
    /// @return an id for removeListener(), unique in this attribute
    /// A callback may add and remove listeners, set values, and delete attributes and nodes, even the one that calls
    /// it. Listeners removed by a callback are not called any more, listeners added by one from the next change on.
    /// It must not delete a longhand, which goes with its owner, change a style sheet that is in use, or throw.
    long addListener(std::function<void()> callback, int role);
    /// Ends what addListener() began; an unknown id is ignored.
    void removeListener(long id);

    /// Duration and delay that setTransitionAnim() armed, in seconds; zeros where it is not armed.
    float transitionDuration() const;
    float transitionDelay() const;
    bool isTransitionArmed() const;

    /// Puts the value at @p progress (0 start to 1 end) of the running transition on the animation layer.
    /// At 1 or more that layer is cleared and the transition is over. Without a running transition nothing happens.
    void animatedValueSet(float progress);

    /// Whether an archive writes this attribute, and if so, from which layer.
    bool layerForSerialization(SerializationOptions options, Layer& layer) const;

protected:
    /// Hands a new transition to the manager; replaces the one that runs. Null ends it.
    void startTransition(std::unique_ptr<TransitionAnim> anim);
    /// The running transition, or null.
    TransitionAnim* runningTransition() const;
    /// Whether a change has to run as a transition: it is armed for a time longer than none.
    bool changesRunAsTransitions() const;

    /// What a class does when one of its attributes changes: a listener of all of them, which takes no memory of each.
    struct Follower {
        void (*changed)(Attribute& attribute);
        int role;
    };
    /// Adds @p follower as the first listener of its role. For classes whose emitChange() calls emitChangeTo() with the
    /// same follower.
    void setFollower(const Follower& follower);
    /// The same for a longhand, with @p compound as its owner.
    void setFollower(Attribute& compound, const Follower& follower);
    /// The owner that setFollower() set, whatever setOwnerShorthand() set since.
    Attribute& followingCompound() const;
    /// Does what emitChange() does, with @p follower in its turn, if setFollower() was called.
    void emitChangeTo(const Follower& follower);

    LayerSet m_layers; // those above the default layer that hold a value, for the classes that store values

private:
    friend class AttributeWatch;
    friend class Node;
    struct Listener;
    class Emission;
    struct Extra;
    class FollowerTurn;
    Listener* lastListener() const;
    Extra& extra();
    Attribute* ownerOfExtra() const;
    void dropEmptyExtra();
    bool isEmitting() const;
    void callListeners(FollowerTurn& turn);
    void unlinkListener(Listener* previous, Listener* listener);
    void sweepListeners();
    void releaseListeners();
    static void freeListeners(Listener* last);

    bool m_isNode : 1;     // set by Node, whose children are deleted one after another instead of nested
    bool m_hasExtra : 1;   // which member of the union is the live one
    bool m_isFollowed : 1; // by its class, without a listener
    bool m_isWatched : 1;  // has been, by an AttributeWatch
    quint8 m_distinct = 0; // of a node: how many of its first slots have names that no slot before them has
    int m_slot = -1;       // place in the host's list of attributes; below -1: in the queue of nodes to delete
    Node* m_host = nullptr;
    QByteArray m_name; // interned
    union {
        Attribute* m_ownerShorthand;
        Extra* m_extra; // what few attributes have, and the owner
    };
};

Q_DECLARE_OPERATORS_FOR_FLAGS(Attribute::SerializationOptions)

} // namespace Ondex
