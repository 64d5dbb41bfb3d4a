#include "mel/CodeVariables.h"

#include "mel/Arrays.h"
#include "mel/GlobalScope.h"
#include "mel/Interpreter.h"
#include "mel/Operations.h"

namespace host::mel {

namespace {

using Kind = Value::Kind;

struct LocalPlace
{
    int index;
    Value& Get(Frame& frame) const { return frame.slots[index]; }
};

struct ReferencePlace
{
    int index;
    Value& Get(Frame& frame) const { return *frame.references[index]; }
};

struct GlobalPlace
{
    GlobalVariable* variable;
    Value& Get(Frame&) const { return variable->value; }
};

/// Calls `make` with the place of the symbol's variable.
template <typename Make>
ExpressionCodePointer WithPlace(const Symbol& symbol, Make make)
{
    switch (symbol.storage) {
    case Symbol::Storage::Reference: return make(ReferencePlace{symbol.index});
    case Symbol::Storage::Global: return make(GlobalPlace{symbol.global});
    case Symbol::Storage::Local: break;
    }
    return make(LocalPlace{symbol.index});
}

template <typename Place>
class AnyVariable : public ExpressionCode
{
public:
    AnyVariable(Kind kind, Place place)
        : ExpressionCode(kind)
        , m_place(place)
    { }
    Value Evaluate(Frame& frame) const override { return m_place.Get(frame); }
    Value* Reference(Frame& frame) const override { return &m_place.Get(frame); }

protected:
    const Place m_place;
};

template <typename Place>
class IntVariable : public AnyVariable<Place>
{
public:
    explicit IntVariable(Place place)
        : AnyVariable<Place>(Kind::Int, place)
    { }
    int Int(Frame& frame) const override { return this->m_place.Get(frame).template Get<int>(); }
    double Float(Frame& frame) const override { return Int(frame); }
    bool Truth(Frame& frame) const override { return Int(frame) != 0; }
};

template <typename Place>
class FloatVariable : public AnyVariable<Place>
{
public:
    explicit FloatVariable(Place place)
        : AnyVariable<Place>(Kind::Float, place)
    { }
    double Float(Frame& frame) const override
    {
        return this->m_place.Get(frame).template Get<double>();
    }
    int Int(Frame& frame) const override { return Truncate(Float(frame)); }
    bool Truth(Frame& frame) const override { return Float(frame) != 0; }
};

template <typename Place>
class IntAssignment : public ExpressionCode
{
public:
    IntAssignment(Place place, Operator operation, ExpressionCodePointer value)
        : ExpressionCode(Kind::Int)
        , m_place(place)
        , m_operation(operation)
        , m_value(std::move(value))
    { }
    Value Evaluate(Frame& frame) const override { return Int(frame); }
    void Execute(Frame& frame) const override { Int(frame); }
    double Float(Frame& frame) const override { return Int(frame); }
    bool Truth(Frame& frame) const override { return Int(frame) != 0; }
    int Int(Frame& frame) const override
    {
        const int value = m_value->Int(frame);
        int& variable = m_place.Get(frame).template Get<int>();
        variable = m_operation == Operator::None
            ? value
            : ApplyInt(frame.interpreter, m_operation, variable, value);
        return variable;
    }

private:
    const Place m_place;
    const Operator m_operation;
    const ExpressionCodePointer m_value;
};

template <typename Place>
class FloatAssignment : public ExpressionCode
{
public:
    FloatAssignment(Place place, Operator operation, ExpressionCodePointer value)
        : ExpressionCode(Kind::Float)
        , m_place(place)
        , m_operation(operation)
        , m_value(std::move(value))
    { }
    Value Evaluate(Frame& frame) const override { return Float(frame); }
    void Execute(Frame& frame) const override { Float(frame); }
    int Int(Frame& frame) const override { return Truncate(Float(frame)); }
    bool Truth(Frame& frame) const override { return Float(frame) != 0; }
    double Float(Frame& frame) const override
    {
        const double value = m_value->Float(frame);
        double& variable = m_place.Get(frame).template Get<double>();
        variable = m_operation == Operator::None
            ? value
            : ApplyFloat(frame.interpreter, m_operation, variable, value);
        return variable;
    }

private:
    const Place m_place;
    const Operator m_operation;
    const ExpressionCodePointer m_value;
};

/// Assigns to a variable of any kind, also one that gets its kind by the first assignment.
template <typename Place>
class AnyAssignment : public ExpressionCode
{
public:
    AnyAssignment(Kind kind, Place place, Operator operation, ExpressionCodePointer value)
        : ExpressionCode(kind)
        , m_place(place)
        , m_operation(operation)
        , m_value(std::move(value))
    { }
    Value Evaluate(Frame& frame) const override
    {
        Execute(frame);
        return m_place.Get(frame);
    }
    void Execute(Frame& frame) const override
    {
        Value value = m_value->Evaluate(frame);
        if (m_operation == Operator::None)
            Assign(frame, value);
        else if (!AppendInPlace(m_place.Get(frame), value))
            Assign(frame, Apply(frame.interpreter, m_operation, m_place.Get(frame), value));
    }

private:
    void Assign(Frame& frame, const Value& value) const
    {
        Value& variable = m_place.Get(frame);
        const Kind kind = variable.GetKind();
        Value converted = Convert(frame.interpreter, value, kind);
        if (kind == Kind::Matrix)
            CheckSize(frame, variable.Get<Matrix>(), converted.Get<Matrix>());
        // Showing a warning can run other code, but nothing ever moves a variable.
        variable = std::move(converted);
    }
    void CheckSize(Frame& frame, const Matrix& variable, const Matrix& value) const
    {
        if (variable.rows == value.rows && variable.columns == value.columns)
            return;
        const auto size = [](const Matrix& matrix) {
            return QStringLiteral("matrix[%1][%2]").arg(matrix.rows).arg(matrix.columns);
        };
        frame.interpreter.Raise(QStringLiteral("Cannot convert data of type %1 to type %2.")
                                    .arg(size(value), size(variable)));
    }
    /// Building a long text piece by piece takes time in proportion to it, not to its square.
    bool AppendInPlace(Value& variable, const Value& value) const
    {
        if (m_operation != Operator::Add || !variable.IsString() || value.IsArray()
            || value.GetKind() == Kind::Matrix)
            return false;
        QString& text = variable.Get<QString>();
        const QString tail = value.ToText();
        if (qint64(text.size()) + tail.size() >= MAXIMUM_TEXT)
            return false;
        text += tail;
        return true;
    }

    const Place m_place;
    const Operator m_operation;
    const ExpressionCodePointer m_value;
};

/// Appends to a string variable. As with "+=", a long text built piece by piece takes time in
/// proportion to it.
template <typename Place>
class Extension : public ExpressionCode
{
public:
    Extension(Place place, ExpressionCodeList parts)
        : ExpressionCode(Kind::String)
        , m_place(place)
        , m_parts(std::move(parts))
    { }
    Value Evaluate(Frame& frame) const override
    {
        Execute(frame);
        return m_place.Get(frame);
    }
    void Execute(Frame& frame) const override
    {
        QString before = m_place.Get(frame).template Get<QString>();
        QString tail;
        for (const ExpressionCodePointer& part : m_parts) {
            const Value value = part->Evaluate(frame);
            tail += Apply(frame.interpreter, Operator::Add, QString(), value).ToText();
            if (qint64(before.size()) + tail.size() > MAXIMUM_TEXT)
                RaiseTooLong(frame.interpreter);
        }
        QString& text = m_place.Get(frame).template Get<QString>();
        // A part may have written the variable, but what counts is what it held at first.
        if (!text.isSharedWith(before))
            text = before;
        before.clear(); // Else the text would be copied before it grows.
        text += tail;
    }

private:
    const Place m_place;
    const ExpressionCodeList m_parts;
};

template <typename Place>
class IntStep : public ExpressionCode
{
public:
    IntStep(Place place, int delta, bool prefix)
        : ExpressionCode(Kind::Int)
        , m_place(place)
        , m_delta(delta)
        , m_prefix(prefix)
    { }
    Value Evaluate(Frame& frame) const override { return Int(frame); }
    void Execute(Frame& frame) const override { Int(frame); }
    double Float(Frame& frame) const override { return Int(frame); }
    bool Truth(Frame& frame) const override { return Int(frame) != 0; }
    int Int(Frame& frame) const override
    {
        int& variable = m_place.Get(frame).template Get<int>();
        const int before = variable;
        variable = ApplyInt(frame.interpreter, Operator::Add, before, m_delta);
        return m_prefix ? variable : before;
    }

private:
    const Place m_place;
    const int m_delta;
    const bool m_prefix;
};

/// Steps a variable that is not known to be an int.
template <typename Place>
class AnyStep : public ExpressionCode
{
public:
    AnyStep(Kind kind, Place place, int delta, bool prefix)
        : ExpressionCode(kind)
        , m_place(place)
        , m_delta(delta)
        , m_prefix(prefix)
    { }
    Value Evaluate(Frame& frame) const override
    {
        Value& variable = m_place.Get(frame);
        if (variable.IsNone())
            variable = 0;
        if (!variable.IsNumber()) {
            const Operator operation = m_delta > 0 ? Operator::Add : Operator::Subtract;
            RaiseIllegal(frame.interpreter, operation, variable.GetKind());
        }
        const Value before = variable;
        variable = Apply(frame.interpreter, Operator::Add, before, m_delta);
        return m_prefix ? variable : before;
    }

private:
    const Place m_place;
    const int m_delta;
    const bool m_prefix;
};

template <typename Place>
class Reset : public ExpressionCode
{
public:
    Reset(Place place, const Value& initial, ExpressionCodePointer elements)
        : ExpressionCode(initial.GetKind())
        , m_place(place)
        , m_initial(initial)
        , m_elements(std::move(elements))
    { }
    Value Evaluate(Frame& frame) const override
    {
        Execute(frame);
        return {};
    }
    void Execute(Frame& frame) const override
    {
        const int elements = m_elements ? m_elements->Int(frame) : 0;
        Value& variable = m_place.Get(frame);
        variable = m_initial;
        if (elements != 0)
            Resize(frame.interpreter, variable, elements);
    }

private:
    const Place m_place;
    const Value m_initial;
    const ExpressionCodePointer m_elements;
};

} // namespace

ExpressionCodePointer MakeVariable(const Symbol& symbol)
{
    return WithPlace(symbol, [&](auto place) -> ExpressionCodePointer {
        using Place = decltype(place);
        if (symbol.kind == Kind::Int)
            return std::make_unique<IntVariable<Place>>(place);
        if (symbol.kind == Kind::Float)
            return std::make_unique<FloatVariable<Place>>(place);
        return std::make_unique<AnyVariable<Place>>(symbol.kind, place);
    });
}

ExpressionCodePointer MakeAssignment(
    const Symbol& symbol, Operator operation, ExpressionCodePointer value)
{
    return WithPlace(symbol, [&](auto place) -> ExpressionCodePointer {
        using Place = decltype(place);
        // "$int += 1.5" adds as floats and then truncates, which only the general node does.
        const bool wholeInts = operation == Operator::None || value->GetKind() == Kind::Int;
        const bool wholeFloats = operation == Operator::None || value->IsNumeric();
        if (symbol.kind == Kind::Int && wholeInts)
            return std::make_unique<IntAssignment<Place>>(place, operation, std::move(value));
        if (symbol.kind == Kind::Float && wholeFloats)
            return std::make_unique<FloatAssignment<Place>>(place, operation, std::move(value));
        return std::make_unique<AnyAssignment<Place>>(
            symbol.kind, place, operation, std::move(value));
    });
}

ExpressionCodePointer MakeExtension(const Symbol& symbol, ExpressionCodeList parts)
{
    return WithPlace(symbol, [&](auto place) -> ExpressionCodePointer {
        return std::make_unique<Extension<decltype(place)>>(place, std::move(parts));
    });
}

ExpressionCodePointer MakeStep(const Symbol& symbol, int delta, bool prefix)
{
    return WithPlace(symbol, [&](auto place) -> ExpressionCodePointer {
        using Place = decltype(place);
        if (symbol.kind == Kind::Int)
            return std::make_unique<IntStep<Place>>(place, delta, prefix);
        return std::make_unique<AnyStep<Place>>(symbol.kind, place, delta, prefix);
    });
}

ExpressionCodePointer MakeReset(
    const Symbol& symbol, const Value& initial, ExpressionCodePointer elements)
{
    return WithPlace(symbol, [&](auto place) -> ExpressionCodePointer {
        return std::make_unique<Reset<decltype(place)>>(place, initial, std::move(elements));
    });
}

} // namespace host::mel
