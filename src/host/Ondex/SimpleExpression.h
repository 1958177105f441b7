#pragma once

#include "Gorvel/HostExport.h"

#include <QByteArray>
#include <QSharedDataPointer>

#include <cstddef>

namespace Ondex {

/// A numeric expression over 32-bit floats with parameters that are known only when it is evaluated: the value of
/// calc().
///
///     Ondex::SimpleExpression half(0.5f);                                    // 50% - 10
///     half.replace(Ondex::SimpleExpression::TAG_MUL, Ondex::SimpleExpression::Param(0));
///     half.replace(Ondex::SimpleExpression::TAG_SUB, 10.f);
///     const float base = 200.f;
///     half.evaluate(&base, 1); // 90
///
/// Copies share the expression until one of them changes. Depth and length have no limit: nothing here is recursive.
class BRISKO_HOST_EXPORT SimpleExpression {
public:
    /// How replace() combines; the numeric codes are fixed.
    enum Tag { TAG_ADD = 0, TAG_SUB = 1, TAG_MUL = 2, TAG_DIV = 3 };

    /// Index into the parameters given to evaluate(), from 0.
    enum class Param : int {};

    /// Makes the constant 0.
    SimpleExpression();
    /// Makes a constant.
    SimpleExpression(float constant);
    SimpleExpression(const SimpleExpression& other);
    SimpleExpression& operator=(const SimpleExpression& other);
    ~SimpleExpression();

    // Each replace() turns this expression e into (e tag operand).
    void replace(Tag tag, const SimpleExpression& operand);
    /// The same; takes time in proportion to the shorter of both only.
    void replace(Tag tag, SimpleExpression&& operand);
    void replace(Tag tag, Param operand);
    void replace(Tag tag, float operand);

    /// Whether the value does not depend on parameters.
    bool isConstant() const;

    /// Computes the value in 32-bit floats.
    /// @p params are @p count values, null where there are none; a parameter that is not among them reads as 0.
    float evaluate(const float* params, std::size_t count) const;

    /// The text inside "calc(" and ")": parameter 0 as percentages, brackets only where the order needs them.
    QByteArray toText() const;

    /// Whether both were combined from the same numbers and parameters in the same way.
    friend BRISKO_HOST_EXPORT bool operator==(const SimpleExpression& a, const SimpleExpression& b);
    friend bool operator!=(const SimpleExpression& a, const SimpleExpression& b) { return !(a == b); }

private:
    struct Program;
    QSharedDataPointer<Program> m_program;
};

} // namespace Ondex
