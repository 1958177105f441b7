#pragma once

#include "Brisko/LazyAttributeManager.h"
#include "Brisko/Styleable.h"
#include "Gorvel/Trace.h"
#include "styling/ScenePlan.h"

#include <map>
#include <memory>
#include <vector>

namespace Testing {

/// A node that notes its virtual calls and those of its attributes, which are the ones that ScenePlan.h names.
class JournalNode : public Brisko::Styleable {
public:
    JournalNode(const QByteArray& label, const QByteArray& type, Journal& journal);

    bool setStyle(const Brisko::Style& style) override;
    bool setAttributeValue(Ondex::Attribute& attribute, const Ondex::StyleValue& value, Layer layer) override;

    const QByteArray& label() const { return m_label; }
    Journal& journal() { return m_journal; }

protected:
    void updateStyle() override;

private:
    QByteArray m_label;
    Journal& m_journal;
};

/// An attribute that notes what it is asked, and keeps on its style layers what it takes.
class JournalAttribute : public Ondex::Attribute {
public:
    JournalAttribute(JournalNode* host, const QByteArray& name);

    bool handleShorthand(const Ondex::StyleValue& value,
                         Gorvel::ArrayMap<Ondex::Attribute*, Ondex::StyleValue>& parts) override;
    bool set(const Ondex::StyleValue& value, Layer layer) override;
    bool set(const Pemmit::Vector4T<float>& value, Layer layer, QList<ValueUnit> units) override;
    bool set(const Pemmit::Vector2T<float>& value, Layer layer, QList<ValueUnit> units) override;
    bool set(int value, Layer layer, ValueUnit unit) override;
    bool set(float value, Layer layer, ValueUnit unit) override;
    void clearValue(Layer layer) override;

    const std::map<int, std::string>& values() const { return m_values; }

private:
    bool note(const char* setter, const Ondex::StyleValue& value, Layer layer, bool takes);

    JournalNode& m_node;
    AttributePlan m_plan;
    std::vector<std::unique_ptr<JournalAttribute>> m_longhands;
    std::map<int, std::string> m_values;
};

/// Serves the lazy attributes of ScenePlan.h and notes the messages of the library, while it lives.
class JournalSession {
public:
    explicit JournalSession(Journal& journal);
    ~JournalSession();
    JournalSession(const JournalSession&) = delete;
    JournalSession& operator=(const JournalSession&) = delete;

private:
    std::vector<std::unique_ptr<Brisko::LazyAttributeManager::Registrant>> m_registrants;
    Gorvel::Trace::Sink m_previous;
};

} // namespace Testing
