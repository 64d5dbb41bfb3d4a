#pragma once

#include <QStringView>
#include <QVector>

/// A word or sign of the code of a statement. Views belong to the text that was read.
struct PythonToken
{
    QStringView word; ///< empty: a sign
    QChar sign;
    bool isAttribute = false; ///< a word behind a dot
};

/// What a name is bound to, as far as the statement tells at a glance.
enum class PythonNameKind { Unknown, Function, Class, Import, Variable };

/// A name that a statement binds.
struct PythonBinding
{
    enum class Scope {
        Here, ///< where the statement stands
        Member, ///< of the class around, through self or cls
        Argument, ///< of the function that the statement begins
        Global, ///< declared so within a function
        Inside, ///< of an expression; nobody else sees it
    };
    QStringView name;
    PythonNameKind kind = PythonNameKind::Unknown;
    Scope scope = Scope::Here;
    /// Nothing that was bound to the name before counts any more.
    bool isFinal = false;
};

/// Finds what statements bind by the look of their words and signs. Rather too much than too
/// little: what it misses cannot be completed. No widgets; every thread.
namespace PythonBindings {

// Signs of several characters, as one.
constexpr QChar WALRUS(0x2254);
constexpr QChar COMPARISON(0x2261);

/// Appends the words and signs of `code`, a line without strings and comments. The words are
/// parts of `line`, in which they stand at the same columns.
void AppendTokens(QStringView code, QStringView line, QVector<PythonToken>& tokens);
/// Of the tokens of one statement.
void AppendBindings(const QVector<PythonToken>& tokens, QVector<PythonBinding>& bindings);
/// Of the language: nobody can bind it.
bool IsKeyword(QStringView word);

} // namespace PythonBindings
