#include "commands/Session.h"
#include "commands/Tables.h"
#include "engine/Engine.h"

#include <QFile>
#include <QRegularExpression>
#include <QSaveFile>

#include <cstring>

namespace host::commands {

namespace {

constexpr int MAXIMUM_STRING_BYTES = 1024; ///< what `fread` takes for one string
constexpr int MAXIMUM_FILE = 1 << 27; ///< bytes read at once; a device has no end
constexpr int MAXIMUM_PART = 1 << 20;

OpenFiles& Files()
{
    return Session::Current().files;
}

Outcome OpenFile(FunctionCall& call)
{
    static const QRegularExpression modes(QStringLiteral("^[rwa][bt+]*$"));
    const QString mode = call.Count() > 1 ? call.Text(1) : QStringLiteral("w");
    if (!modes.match(mode).hasMatch())
        return Error{QStringLiteral("Invalid file mode \"%1\".").arg(mode)};
    return Files().Open(call.Text(0), mode);
}

Outcome OpenPipe(FunctionCall& call)
{
    const QString mode = call.Text(1);
    if (mode != QLatin1String("r") && mode != QLatin1String("w"))
        return Error{QStringLiteral("Invalid pipe mode \"%1\".").arg(mode)};
    return Files().OpenPipe(call.Text(0), mode);
}

/// Runs `action` on the open file that the first argument names.
template <typename Action>
Outcome WithFile(const FunctionCall& call, Action action)
{
    const int id = call.Int(0);
    if (!Files().IsOpen(id))
        return Error{QStringLiteral("Invalid file identifier: %1.").arg(id)};
    return action(id);
}

Outcome CloseFile(FunctionCall& call)
{
    return WithFile(call, [](int id) {
        Files().Close(id);
        return Outcome();
    });
}

Outcome AtEnd(FunctionCall& call)
{
    return WithFile(call, [](int id) { return Outcome(Files().AtEnd(id) ? 1 : 0); });
}

Outcome GetLine(FunctionCall& call)
{
    return WithFile(call, [](int id) { return Outcome(DecodedText(Files().ReadLine(id))); });
}

Outcome GetWord(FunctionCall& call)
{
    const QByteArray separators
        = call.Count() > 1 ? call.Text(1).toUtf8() : QByteArrayLiteral(" \t\r\n\f\v");
    return WithFile(
        call, [&](int id) { return Outcome(DecodedText(Files().ReadWord(id, separators))); });
}

template <typename Number>
Number FromBytes(const QByteArray& bytes, int index = 0)
{
    Number number{};
    const int offset = index * static_cast<int>(sizeof(Number));
    if (bytes.size() >= offset + static_cast<int>(sizeof(Number)))
        std::memcpy(&number, bytes.constData() + offset, sizeof(Number));
    return number;
}

template <typename Number>
QByteArray ToBytes(Number number)
{
    return {reinterpret_cast<const char*>(&number), static_cast<int>(sizeof(Number))};
}

/// The sample says what to read; its value does not matter.
Outcome ReadValue(FunctionCall& call)
{
    return WithFile(call, [&](int id) -> Outcome {
        switch (call.At(1).GetKind()) {
        case Value::Kind::Int: return FromBytes<qint32>(Files().ReadBytes(id, sizeof(qint32)));
        case Value::Kind::Float: return FromBytes<double>(Files().ReadBytes(id, sizeof(double)));
        case Value::Kind::Vector: {
            const QByteArray bytes = Files().ReadBytes(id, 3 * sizeof(double));
            return Vector{FromBytes<double>(bytes, 0), FromBytes<double>(bytes, 1),
                FromBytes<double>(bytes, 2)};
        }
        case Value::Kind::String: return DecodedText(Files().ReadText(id, MAXIMUM_STRING_BYTES));
        default:
            return Error{QStringLiteral("Cannot read data of type %1 from a file.")
                             .arg(KindName(call.At(1).GetKind()))};
        }
    });
}

QByteArray BinaryForm(const Value& value)
{
    switch (value.GetKind()) {
    case Value::Kind::Int: return ToBytes<qint32>(value.ToInt());
    case Value::Kind::Float: return ToBytes(value.ToFloat());
    case Value::Kind::Vector: {
        const Vector vector = value.ToVector();
        return ToBytes(vector.x) + ToBytes(vector.y) + ToBytes(vector.z);
    }
    case Value::Kind::String: return value.ToText().toUtf8() + '\0';
    default: break;
    }
    QByteArray bytes;
    for (int i = 0; value.IsArray() && i < value.Count(); ++i)
        bytes += BinaryForm(value.At(i));
    return bytes;
}

Outcome WriteBytes(const FunctionCall& call, const QByteArray& bytes)
{
    return WithFile(call, [&](int id) {
        return Files().Write(id, bytes)
            ? Outcome()
            : Outcome(Error{QStringLiteral("Cannot write to file %1.").arg(id)});
    });
}

Outcome WriteValue(FunctionCall& call)
{
    return WriteBytes(call, BinaryForm(call.At(1)));
}

Outcome PrintValue(FunctionCall& call)
{
    return WriteBytes(call, call.At(1).ToPrintText().toUtf8());
}

Outcome FlushFile(FunctionCall& call)
{
    return WithFile(call, [](int id) {
        Files().Flush(id);
        return Outcome();
    });
}

Outcome RewindFile(FunctionCall& call)
{
    return WithFile(call, [](int id) {
        Files().Rewind(id);
        return Outcome();
    });
}

Outcome ReadAll(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return Error{QStringLiteral("Cannot read file \"%1\": %2.").arg(path, file.errorString())};
    }
    QByteArray bytes;
    while (bytes.size() <= MAXIMUM_FILE) {
        const QByteArray part = file.read(MAXIMUM_PART);
        if (part.isEmpty())
            return DecodedText(bytes);
        bytes += part;
    }
    return Error{QStringLiteral("Cannot read file \"%1\": It is too long.").arg(path)};
}

Outcome ReadAllText(FunctionCall& call)
{
    return ReadAll(call.Text(0));
}

Outcome ReadAllLines(FunctionCall& call)
{
    const Outcome text = ReadAll(call.Text(0));
    if (!text.Ok())
        return text;
    QStringList lines = text.GetValue().ToText().split(QLatin1Char('\n'));
    if (lines.last().isEmpty())
        lines.removeLast();
    for (QString& line : lines) {
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
    }
    return lines;
}

Outcome WriteAll(const QString& path, const QString& text)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0 || !file.commit()) {
        return Error{QStringLiteral("Cannot write file \"%1\": %2.").arg(path, file.errorString())};
    }
    return 1;
}

Outcome WriteAllText(FunctionCall& call)
{
    return WriteAll(call.Text(0), call.Text(1));
}

Outcome WriteAllLines(FunctionCall& call)
{
    return WriteAll(call.Text(0), Value(call.At(1).ToTextList()).ToPrintText());
}

// clang-format off
const FunctionRow FUNCTIONS[] = {
    {"int fopen(string, [string])",        OpenFile},
    {"int popen(string, string)",          OpenPipe},
    {"void fclose(int)",                   CloseFile},
    {"void pclose(int)",                   CloseFile},
    {"int feof(int)",                      AtEnd},
    {"string fgetline(int)",               GetLine},
    {"string fgetword(int, [string])",     GetWord},
    {"any fread(int, any)",                ReadValue},
    {"void fwrite(int, any)",              WriteValue},
    {"void fprint(int, any)",              PrintValue},
    {"void fflush(int)",                   FlushFile},
    {"void frewind(int)",                  RewindFile},
    {"string freadAllText(string)",        ReadAllText},
    {"string[] freadAllLines(string)",     ReadAllLines},
    {"int fwriteAllText(string, string)",  WriteAllText},
    {"int fwriteAllLines(string, string[])", WriteAllLines},
};
// clang-format on

} // namespace

void RegisterFiles(CommandRegistry& registry)
{
    registry.Register(FUNCTIONS);
}

} // namespace host::commands
