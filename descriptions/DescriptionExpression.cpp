// The expression parser (recursive descent straight into postfix steps) and its two evaluators.
#include "descriptions/DescriptionExpression.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace chipdesc {

namespace {

using Op = Expression::Op;
using Step = Expression::Step;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
bool IsNameStart(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}
bool IsNameChar(char c) {
    return IsNameStart(c) || IsDigit(c);
}
int HexDigit(char c) {
    if (IsDigit(c))
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

// Operands on the evaluation stack at most: one a character and an operator between two.
constexpr std::size_t kMaxStack = kMaxExpressionChars / 2 + 1;

} // namespace

class ExpressionParser {
public:
    explicit ExpressionParser(std::string_view text) : m_text(text) {}

    std::variant<Expression, Expression::Error> Run() {
        if (m_text.size() > kMaxExpressionChars)
            return Expression::Error{Expression::Error::Kind::Syntax,
                                     static_cast<int>(kMaxExpressionChars) + 1};
        bool constant = false;
        if (!Or(constant))
            return *m_error;
        Skip();
        if (m_at < m_text.size()) {
            Fail();
            return *m_error;
        }
        return std::move(m_expression);
    }

private:
    using Kind = Expression::Error::Kind;

    bool Fail(Kind kind = Kind::Syntax) { return Fail(m_at, kind); }
    bool Fail(std::size_t at, Kind kind = Kind::Syntax) {
        if (!m_error)
            m_error = Expression::Error{kind, static_cast<int>(at) + 1};
        return false;
    }
    void Skip() {
        while (m_at < m_text.size() && (m_text[m_at] == ' ' || m_text[m_at] == '\t'))
            ++m_at;
    }
    // The next word if it is a name: '-' belongs to it between name characters.
    std::string_view PeekName() {
        Skip();
        std::size_t end = m_at;
        if (end >= m_text.size() || !IsNameStart(m_text[end]))
            return {};
        ++end;
        while (end < m_text.size() &&
               (IsNameChar(m_text[end]) ||
                (m_text[end] == '-' && end + 1 < m_text.size() && IsNameChar(m_text[end + 1]))))
            ++end;
        return m_text.substr(m_at, end - m_at);
    }
    bool TakeWord(std::string_view word) {
        if (PeekName() != word)
            return false;
        m_at += word.size();
        return true;
    }
    bool TakeSymbol(std::string_view symbol) {
        Skip();
        if (m_text.substr(m_at, symbol.size()) != symbol)
            return false;
        m_at += symbol.size();
        return true;
    }
    void Emit(Op op) { m_expression.m_steps.push_back(Step{op}); }

    // One more level of nesting, opened at `at`.
    bool Nested(std::size_t at) {
        if (++m_depth > kMaxExpressionDepth)
            return Fail(at);
        return true;
    }
    std::size_t Here() {
        Skip();
        return m_at;
    }

    using Operators = std::span<const std::pair<std::string_view, Op>>;
    // One of the operators, a word ("and") only when it stands alone.
    std::optional<Op> TakeOperator(Operators operators) {
        for (const auto& [symbol, op] : operators)
            if (IsNameStart(symbol.front()) ? TakeWord(symbol) : TakeSymbol(symbol))
                return op;
        return std::nullopt;
    }
    using Level = bool (ExpressionParser::*)(bool& constant);
    // Operands of the next tighter level joined left to right by the operators.
    bool LeftToRight(bool& constant, Level next, Operators operators) {
        if (!(this->*next)(constant))
            return false;
        for (;;) {
            const std::size_t at = Here();
            const std::optional<Op> op = TakeOperator(operators);
            if (!op)
                return true;
            const std::size_t rightStart = m_expression.m_steps.size();
            bool right = false;
            if (!(this->*next)(right))
                return false;
            if ((*op == Op::Divide || *op == Op::Remainder) && right && DividesByZero(rightStart))
                return Fail(at, Kind::DivisionByZero);
            Emit(*op);
            constant = constant && right;
        }
    }

    // The operator applied to its own level again, or else the next tighter level.
    bool Prefixed(bool& constant, Operators prefix, Level self, Level next) {
        const std::size_t at = Here();
        const std::optional<Op> op = TakeOperator(prefix);
        if (!op)
            return (this->*next)(constant);
        if (!Nested(at) || !(this->*self)(constant))
            return false;
        --m_depth;
        Emit(*op);
        return true;
    }

    static constexpr std::pair<std::string_view, Op> kOr[] = {{"or", Op::Or}};
    static constexpr std::pair<std::string_view, Op> kNot[] = {{"not", Op::Not}};
    static constexpr std::pair<std::string_view, Op> kNegate[] = {{"-", Op::Negate}};
    static constexpr std::pair<std::string_view, Op> kAnd[] = {{"and", Op::And}};
    // Two-character symbols first.
    static constexpr std::pair<std::string_view, Op> kComparisons[] = {
        {"<=", Op::LessEqual}, {">=", Op::GreaterEqual}, {"==", Op::Equal},
        {"!=", Op::NotEqual},  {"<", Op::Less},          {">", Op::Greater}};
    static constexpr std::pair<std::string_view, Op> kSums[] = {{"+", Op::Add}, {"-", Op::Subtract}};
    static constexpr std::pair<std::string_view, Op> kProducts[] = {
        {"*", Op::Multiply}, {"/", Op::Divide}, {"%", Op::Remainder}};

    bool Or(bool& constant) { return LeftToRight(constant, &ExpressionParser::And, kOr); }
    bool And(bool& constant) { return LeftToRight(constant, &ExpressionParser::Not, kAnd); }
    bool Not(bool& constant) {
        return Prefixed(constant, kNot, &ExpressionParser::Not, &ExpressionParser::Comparison);
    }
    // One comparison at most: "a < b < c" reads as nothing a chip engineer means.
    bool Comparison(bool& constant) {
        if (!Sum(constant))
            return false;
        const std::optional<Op> op = TakeOperator(kComparisons);
        if (!op)
            return true;
        bool right = false;
        if (!Sum(right))
            return false;
        Emit(*op);
        constant = constant && right;
        const std::size_t at = Here();
        if (TakeOperator(kComparisons))
            return Fail(at);
        return true;
    }
    bool Sum(bool& constant) { return LeftToRight(constant, &ExpressionParser::Product, kSums); }
    bool Product(bool& constant) { return LeftToRight(constant, &ExpressionParser::Unary, kProducts); }
    // A constant divisor that is zero in either precision.
    bool DividesByZero(std::size_t start) const {
        const std::span<const Step> divisor = std::span(m_expression.m_steps).subspan(start);
        const std::optional<float> single = m_expression.Run<float>(divisor, {});
        const std::optional<double> exact = m_expression.Run<double>(divisor, {});
        return (single && *single == 0.0f) || (exact && *exact == 0.0);
    }
    bool Unary(bool& constant) {
        return Prefixed(constant, kNegate, &ExpressionParser::Unary, &ExpressionParser::Primary);
    }
    bool Primary(bool& constant) {
        const std::size_t at = Here();
        if (TakeSymbol("(")) {
            if (!Nested(at) || !Or(constant))
                return false;
            --m_depth;
            return TakeSymbol(")") || Fail();
        }
        if (m_at < m_text.size() && IsDigit(m_text[m_at])) {
            constant = true;
            return Number();
        }
        const std::string_view name = PeekName();
        if (name.empty() || name == "and" || name == "or" || name == "not")
            return Fail();
        constant = false;
        std::vector<Expression::Name>& names = m_expression.m_names;
        const auto found = std::find_if(names.begin(), names.end(),
                                        [&](const Expression::Name& n) { return n.name == name; });
        Step step{Op::Name};
        step.name = static_cast<int>(found - names.begin());
        if (found == names.end())
            names.push_back({std::string(name), static_cast<int>(m_at) + 1});
        m_expression.m_steps.push_back(step);
        m_at += name.size();
        return true;
    }
    bool Number() {
        const std::size_t start = m_at;
        std::uint64_t mantissa = 0;
        int digits = 0;
        int decimals = -1; // digits after the point; -1: no point
        if (m_text.substr(m_at, 2) == "0x" || m_text.substr(m_at, 2) == "0X") {
            m_at += 2;
            for (; m_at < m_text.size() && HexDigit(m_text[m_at]) >= 0; ++m_at, ++digits)
                mantissa = mantissa * 16 + static_cast<unsigned>(HexDigit(m_text[m_at]));
            if (digits == 0 || digits > 8)
                return Fail(start);
        } else {
            for (; m_at < m_text.size(); ++m_at) {
                const char c = m_text[m_at];
                if (c == '.' && decimals < 0) {
                    decimals = 0;
                    continue;
                }
                if (!IsDigit(c))
                    break;
                if (++digits > 10)
                    return Fail(start);
                mantissa = mantissa * 10 + static_cast<unsigned>(c - '0');
                if (decimals >= 0)
                    ++decimals;
            }
            if (decimals == 0 || (decimals > 0 && digits > 9) || mantissa > 0xFFFFFFFFu)
                return Fail(start);
        }
        if (m_at < m_text.size() && (IsNameChar(m_text[m_at]) || m_text[m_at] == '.'))
            return Fail(start);
        Step step{Op::Number};
        if (decimals <= 0) {
            step.number = static_cast<double>(mantissa);
            step.numberFloat = static_cast<float>(mantissa);
        } else {
            // Both operands are exact, so each quotient is rounded once, as the text's own value is.
            double scale = 1;
            for (int i = 0; i < decimals; ++i)
                scale *= 10;
            step.number = static_cast<double>(mantissa) / scale;
            step.numberFloat = mantissa < (1u << 24)
                                   ? static_cast<float>(mantissa) / static_cast<float>(scale)
                                   : static_cast<float>(step.number);
        }
        m_expression.m_steps.push_back(step);
        return true;
    }

    std::string_view m_text;
    std::size_t m_at = 0;
    int m_depth = 0;
    Expression m_expression;
    std::optional<Expression::Error> m_error;
};

std::variant<Expression, Expression::Error> Expression::Parse(std::string_view text) {
    return ExpressionParser(text).Run();
}

namespace {

// A binary operator's result; NaN stands for "no value", nullopt for an operator that is not binary.
template <class T> std::optional<T> Combine(Expression::Op op, T a, T b) {
    constexpr T kNone = std::numeric_limits<T>::quiet_NaN();
    const bool none = std::isnan(a) || std::isnan(b);
    auto truth = [&](bool value) { return none ? kNone : static_cast<T>(value); };
    switch (op) {
    case Expression::Op::Add:
        return a + b;
    case Expression::Op::Subtract:
        return a - b;
    case Expression::Op::Multiply:
        return a * b;
    case Expression::Op::Divide:
        return b == 0 ? kNone : a / b;
    case Expression::Op::Remainder:
        return b == 0 ? kNone : std::fmod(a, b);
    case Expression::Op::Less:
        return truth(a < b);
    case Expression::Op::LessEqual:
        return truth(a <= b);
    case Expression::Op::Greater:
        return truth(a > b);
    case Expression::Op::GreaterEqual:
        return truth(a >= b);
    case Expression::Op::Equal:
        return truth(a == b);
    case Expression::Op::NotEqual:
        return truth(a != b);
    // A side that decides alone settles it, whatever the other.
    case Expression::Op::And:
        return (a == 0 || b == 0) ? T(0) : truth(true);
    case Expression::Op::Or:
        return ((!std::isnan(a) && a != 0) || (!std::isnan(b) && b != 0)) ? T(1) : truth(false);
    default:
        return std::nullopt;
    }
}

} // namespace

// NaN stands for "no value" on the stack.
template <class T>
std::optional<T> Expression::Run(std::span<const Step> steps, std::span<const std::int64_t> values) const {
    constexpr T kNone = std::numeric_limits<T>::quiet_NaN();
    std::array<T, kMaxStack> stack;
    std::size_t size = 0;
    for (const Step& step : steps) {
        if (step.op == Op::Number || step.op == Op::Name) {
            if (size == stack.size())
                return std::nullopt;
            const auto index = static_cast<std::size_t>(step.name);
            stack[size++] = step.op == Op::Number
                                ? (std::is_same_v<T, float> ? step.numberFloat : static_cast<T>(step.number))
                            : index < values.size() ? static_cast<T>(values[index])
                                                    : kNone;
            continue;
        }
        if (size == 0)
            return std::nullopt;
        T& top = stack[size - 1];
        if (step.op == Op::Negate) {
            top = -top;
            continue;
        }
        if (step.op == Op::Not) {
            top = std::isnan(top) ? kNone : static_cast<T>(top == 0);
            continue;
        }
        if (size < 2)
            return std::nullopt;
        const T b = stack[--size];
        const std::optional<T> result = Combine(step.op, stack[size - 1], b);
        if (!result)
            return std::nullopt;
        stack[size - 1] = *result;
    }
    if (size != 1 || !std::isfinite(stack[0]))
        return std::nullopt;
    return stack[0];
}

std::optional<float> Expression::EvaluateFloat(std::span<const std::int64_t> values) const {
    return Run<float>(m_steps, values);
}

std::optional<double> Expression::Evaluate(std::span<const std::int64_t> values) const {
    return Run<double>(m_steps, values);
}

} // namespace chipdesc
