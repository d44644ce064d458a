// Expressions a description computes from a page's field values: read-out formulas, and conditions
// between fields. Parsed once into postfix order, evaluated whenever a value changes.
//
//   numbers   12  0x1F  1.5625    (decimals: at most 9 digits; integers up to 0xFFFFFFFF)
//   names     value, or another field's name: [A-Za-z_][A-Za-z0-9_-]*, so "a-b" is one name and
//             subtraction wants blanks: "a - b"
//   operators  or  and  not  < <= > >= == !=  + -  * / %  unary -  ( )   (loosest to tightest)
//
// A comparison, and, or and not give 1 or 0; a non-zero value is true. A comparison takes no second
// comparison ("a < b < c" is refused). % is the remainder with the dividend's sign. "x == 0 or y / x > 2"
// is 1 for x = 0: "and" and "or" settle on one side when it decides alone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace chipdesc {

inline constexpr std::size_t kMaxExpressionChars = 400;
inline constexpr int kMaxExpressionDepth = 32; // parentheses, operators and signs nested

class Expression {
public:
    struct Error {
        enum class Kind : std::uint8_t {
            Syntax,         // at column: unexpected text, or too long or deeply nested
            DivisionByZero, // at column: "/" or "%" by a constant that is zero
        };
        Kind kind = Kind::Syntax;
        int column = 1; // counted from 1 in the text parsed
    };
    struct Name {
        std::string name;
        int column = 1; // of its first use
    };

    static std::variant<Expression, Error> Parse(std::string_view text);

    // The names the expression uses, each once, in order of first use; Evaluate takes their values
    // in this order.
    const std::vector<Name>& Names() const { return m_names; }

    // Single precision, as the module's read-outs compute. Nothing when the expression has no value:
    // a division or remainder by zero, a result beyond float's range, or a name without a value
    // (fewer values than names).
    std::optional<float> EvaluateFloat(std::span<const std::int64_t> values) const;
    // Double precision, for conditions: exact for 32-bit values and every sum, difference, product and
    // remainder of them below 2^53. Nothing as above.
    std::optional<double> Evaluate(std::span<const std::int64_t> values) const;

    // The postfix steps the parser writes and the evaluators run.
    enum class Op : std::uint8_t {
        Number,
        Name,
        Negate,
        Not,
        Add,
        Subtract,
        Multiply,
        Divide,
        Remainder,
        Less,
        LessEqual,
        Greater,
        GreaterEqual,
        Equal,
        NotEqual,
        And,
        Or
    };
    struct Step {
        Op op = Op::Number;
        int name = 0; // Names() index
        double number = 0;
        float numberFloat = 0; // rounded from the text itself, not from the double
    };

private:
    friend class ExpressionParser;
    template <class T>
    std::optional<T> Run(std::span<const Step> steps, std::span<const std::int64_t> values) const;

    std::vector<Step> m_steps; // postfix
    std::vector<Name> m_names;
};

} // namespace chipdesc
