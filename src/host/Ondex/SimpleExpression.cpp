#include "Ondex/SimpleExpression.h"

#include "Ondex/NumberText_p.h"

#include <QSharedData>
#include <QVarLengthArray>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace Ondex {

namespace {

struct Op {
    enum Code { Add, Sub, Mul, Div, Constant, Parameter }; // the first four are the tags
    Code code;
    float constant = 0.f;
    int parameter = 0;

    bool isOperand() const { return code >= Constant; }
};

bool operator==(const Op& a, const Op& b) {
    const bool sameConstant = a.constant == b.constant || (a.constant != a.constant && b.constant != b.constant);
    return a.code == b.code && sameConstant && a.parameter == b.parameter;
}

float apply(Op::Code code, float a, float b) {
    switch (code) {
    case Op::Add:
        return a + b;
    case Op::Sub:
        return a - b;
    case Op::Mul:
        return a * b;
    default:
        return a / b;
    }
}

/// Operations in order. To add some takes time in proportion to their number, at either end.
class OpList {
public:
    const Op* begin() const { return m_ops.data() + m_unused; }
    const Op* end() const { return m_ops.data() + m_ops.size(); }
    std::size_t size() const { return m_ops.size() - m_unused; }
    const Op& operator[](std::size_t i) const { return begin()[i]; }

    void append(const Op& op) { m_ops.push_back(op); }
    void append(const OpList& other) { m_ops.insert(m_ops.end(), other.begin(), other.end()); }
    void prepend(const OpList& other) {
        if (other.size() > m_unused)
            makeRoom(other.size());
        m_unused -= other.size();
        std::copy(other.begin(), other.end(), m_ops.data() + m_unused);
    }

private:
    /// Makes room in front for @p count and for half as many as there are then.
    void makeRoom(std::size_t count) {
        const std::size_t room = count + (count + size()) / 2;
        std::vector<Op> ops;
        ops.reserve(room + size());
        ops.resize(room, Op{Op::Constant});
        ops.insert(ops.end(), begin(), end());
        m_ops = std::move(ops);
        m_unused = room;
    }

    std::vector<Op> m_ops;
    std::size_t m_unused = 0; // at the front
};

bool operator==(const OpList& a, const OpList& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end());
}

} // namespace

/// The operations in postfix order: operands before their operator.
struct SimpleExpression::Program : QSharedData {
    OpList ops;
    int depth = 1;          // operands that evaluation holds at the same time, at most
    bool isConstant = true; // no parameters

    /// Adds the operation that combines what is there with an operand that needs @p operandDepth.
    void combine(Tag tag, int operandDepth) {
        ops.append({static_cast<Op::Code>(tag)});
        depth = std::max(depth, operandDepth + 1);
    }
};

SimpleExpression::SimpleExpression() : SimpleExpression(0.f) {}

SimpleExpression::SimpleExpression(float constant) : m_program(new Program) {
    m_program->ops.append({Op::Constant, constant});
}

SimpleExpression::SimpleExpression(const SimpleExpression& other) = default;
SimpleExpression& SimpleExpression::operator=(const SimpleExpression& other) = default;
SimpleExpression::~SimpleExpression() = default;

void SimpleExpression::replace(Tag tag, const SimpleExpression& operand) {
    const QSharedDataPointer<Program> other = operand.m_program; // stays as it is where both are the same object
    Program& program = *m_program;
    program.ops.append(other->ops);
    program.isConstant = program.isConstant && other->isConstant;
    program.combine(tag, other->depth);
}

void SimpleExpression::replace(Tag tag, SimpleExpression&& operand) {
    const QSharedDataPointer<Program>& right = operand.m_program;
    if (right->ref.loadRelaxed() > 1 || right.constData()->ops.size() <= m_program.constData()->ops.size()) {
        replace(tag, operand);
        return;
    }
    const QSharedDataPointer<Program> left = m_program;
    m_program.swap(operand.m_program);
    Program& program = *m_program;
    program.ops.prepend(left->ops);
    program.isConstant = program.isConstant && left->isConstant;
    const int rightDepth = std::exchange(program.depth, left->depth);
    program.combine(tag, rightDepth);
}

void SimpleExpression::replace(Tag tag, Param operand) {
    Program& program = *m_program;
    program.ops.append({Op::Parameter, 0.f, static_cast<int>(operand)});
    program.isConstant = false;
    program.combine(tag, 1);
}

void SimpleExpression::replace(Tag tag, float operand) {
    Program& program = *m_program;
    program.ops.append({Op::Constant, operand});
    program.combine(tag, 1);
}

bool SimpleExpression::isConstant() const {
    return m_program->isConstant;
}

float SimpleExpression::evaluate(const float* params, std::size_t count) const {
    QVarLengthArray<float, 64> stack;
    stack.reserve(m_program->depth);
    for (const Op& op : m_program->ops) {
        if (op.code == Op::Constant) {
            stack.append(op.constant);
        } else if (op.code == Op::Parameter) {
            const bool isGiven = op.parameter >= 0 && static_cast<std::size_t>(op.parameter) < count;
            stack.append(isGiven ? params[op.parameter] : 0.f);
        } else {
            const float right = stack.last();
            stack.removeLast();
            stack.last() = apply(op.code, stack.last(), right);
        }
    }
    return stack.last();
}

bool operator==(const SimpleExpression& a, const SimpleExpression& b) {
    return a.m_program == b.m_program || a.m_program->ops == b.m_program->ops;
}

namespace {

/// Writes a postfix program in the infix order. The operands keep their order, and between two neighbours stands
/// exactly one operator; so the text needs only the brackets at each operand and the operator behind it.
class InfixWriter {
public:
    explicit InfixWriter(const OpList& ops) {
        for (std::size_t i = 0; i < ops.size(); ++i) {
            if (isPercentage(ops, i)) {
                push(percentageText(ops[i].constant));
                i += 2;
            } else if (ops[i].isOperand()) {
                push(operandText(ops[i]));
            } else {
                combine(ops[i].code);
            }
        }
    }

    QByteArray text() const {
        QByteArray result;
        for (const Leaf& leaf : m_leaves) {
            result += QByteArray(leaf.opened, '(') + leaf.text + QByteArray(leaf.closed, ')');
            if (leaf.behind != Op::Constant)
                result += QByteArray(" ") + "+-*/"[leaf.behind] + ' ';
        }
        return result;
    }

private:
    struct Leaf {
        QByteArray text;
        int opened = 0;
        int closed = 0;
        Op::Code behind = Op::Constant; // an operator, except at the last one
    };
    struct Range {
        std::size_t first;
        std::size_t last;
        int precedence;
    };
    static constexpr int SumPrecedence = 0;
    static constexpr int ProductPrecedence = 1;
    static constexpr int LeafPrecedence = 2;

    /// A number times parameter 0, which is how a percentage is built.
    static bool isPercentage(const OpList& ops, std::size_t i) {
        return i + 2 < ops.size() && ops[i].code == Op::Constant && !std::isnan(ops[i].constant) &&
               ops[i + 1].code == Op::Parameter && ops[i + 1].parameter == 0 && ops[i + 2].code == Op::Mul;
    }

    static QByteArray percentageText(float fraction) {
        return std::isfinite(fraction) ? NumberText::percentage(fraction) : NumberText::notFinite(fraction) + '%';
    }

    static QByteArray operandText(const Op& op) {
        if (op.code == Op::Constant)
            return std::isfinite(op.constant) ? NumberText::number(op.constant) : NumberText::notFinite(op.constant);
        return op.parameter == 0 ? QByteArray("100%") : "param(" + QByteArray::number(op.parameter) + ')';
    }

    void push(const QByteArray& text) {
        m_stack.push_back({m_leaves.size(), m_leaves.size(), LeafPrecedence});
        m_leaves.push_back({text});
    }

    void combine(Op::Code code) {
        const int precedence = code == Op::Add || code == Op::Sub ? SumPrecedence : ProductPrecedence;
        const Range right = m_stack.back();
        m_stack.pop_back();
        Range& left = m_stack.back();
        if (left.precedence < precedence)
            bracket(left);
        if (right.precedence <= precedence)
            bracket(right);
        m_leaves[left.last].behind = code;
        left = {left.first, right.last, precedence};
    }

    void bracket(const Range& range) {
        ++m_leaves[range.first].opened;
        ++m_leaves[range.last].closed;
    }

    std::vector<Leaf> m_leaves;
    std::vector<Range> m_stack;
};

} // namespace

QByteArray SimpleExpression::toText() const {
    return InfixWriter(m_program->ops).text();
}

} // namespace Ondex
