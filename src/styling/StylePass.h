#pragma once

#include "Brisko/StyleStatistics.h"
#include "Brisko/Styleable.h"
#include "model/RuleIndex.h"
#include "styling/AppliedValues.h"
#include "styling/FoundProperties.h"
#include "styling/StyleableWatch.h"

#include <vector>

namespace Brisko {

/// One run of the cascade over one node: matches, picks the winner of every property, writes it, clears the rest.
///
///     StylePass pass(node);
///     if (pass.run())
///         node.m_childStyle = pass.childStyle();
class StylePass {
public:
    explicit StylePass(Styleable& node);
    ~StylePass();
    StylePass(const StylePass&) = delete;
    StylePass& operator=(const StylePass&) = delete;

    /// @return false where a listener deleted the node
    bool run();
    /// The style for the children, after the run.
    Style childStyle();

    /// Looks whether rules and identity come to the same with @p style, which the node has not got yet, as they did in
    /// its last pass. Then the next one takes the winners of that, and leaves the uses of pseudo-classes as they are.
    static bool prepare(Styleable& node, const Style& style);
    /// Has the next pass match the rules, whatever the style.
    static void forgetMatches(Styleable& node);
    /// Tells that the node goes on handing down an equal style in place of the one that the pass has made.
    static void keptChildStyle(Styleable& node, const Style& made);

    /// Keeps the style of the node, which is being deleted, as the values that are being written are in its sheet.
    void nodeGoes(Style&& style);
    /// Gives up an attribute that leaves the node while the pass runs.
    void forget(Ondex::Attribute* attribute);

private:
    struct Scratch;
    struct Deferred;

    void noteMatches(const Style& made);
    bool recall();
    bool recallWinner(int index);
    void giveUpRecall();
    void matchRules();
    void matchWaiting();
    void tryStart(const RuleIndex::Start& start);
    void tryWaiting(const WaitingCompound& waiting);
    void apply(const SimpleSelector& compound, const OfferRange& offers, int specificity);
    void applyHandedDown(const SimpleSelector& compound, const std::vector<Declaration>& declarations, int specificity);
    int findPlace(const Offer& offered);
    int makePlace(const QByteArray& property);
    void defer(const Deferred& declaration);
    bool offer(int place, const Ondex::StyleValue& value, const Claim& claim);
    void split(int place);
    void writeWinners();
    bool isOfTransition(const AppliedValues::Value& winner) const;
    void writeAll(const std::vector<int>& places);
    void writeAllOf(int declaration);
    void write(const AppliedValues::Value& winner);
    void applyDeferred();
    void clearStale();
    void count();

    bool isNodeAlive() const { return m_watch.isAlive(); }

    Styleable& m_node;
    Styleable::Watch m_watch;
    const RuleIndex* m_index; // of the sheet; null where there is none
    Style m_styleOfLostNode;  // keeps the sheet where the node goes
    Scratch& m_scratch;
    bool m_isFirst; // that writes on the node
    unsigned m_newGeneration;
    int m_written = 0;          // properties that the pass has written
    int m_lastWritten = -1;     // place of the last one among those applied
    bool m_isPlain = true;      // nothing happened but that whole values of the sheet were written, in their order
    quint64 m_newestStatistics; // the number of the newest that counts this pass; 0 where none does
    std::size_t m_handedOn = 0; // for those that count: states of a new list for the children
    std::size_t m_offered = 0;  // and declarations that were offered
};

} // namespace Brisko
