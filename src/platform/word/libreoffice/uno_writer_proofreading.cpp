// What a check of spelling and grammar needs: the paragraphs of the document, and LibreOffice's engines.
#include "platform/word/libreoffice/uno_writer_session.h"

#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/linguistic2/LinguServiceManager.hpp>
#include <com/sun/star/linguistic2/ProofreadingResult.hpp>
#include <com/sun/star/text/XTextTable.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>

#include <limits>

namespace platform {

using css::linguistic2::SingleProofreadingError;
using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

const css::lang::Locale& Language() {
    static const css::lang::Locale english("en", "US", "");
    return english;
}

QString FromUno(const rtl::OUString& text) {
    return QString(reinterpret_cast<const QChar*>(text.getStr()), text.getLength());
}

QStringList FromUno(const css::uno::Sequence<rtl::OUString>& texts) {
    QStringList list;
    for (const rtl::OUString& text : texts)
        list.append(FromUno(text));
    return list;
}

// A cursor takes only steps of 16 bits.
void GoRight(const Reference<css::text::XTextCursor>& cursor, sal_Int32 count, bool expand) {
    constexpr sal_Int32 kLongestStep = std::numeric_limits<sal_Int16>::max();
    for (; count > 0; count -= kLongestStep)
        cursor->goRight(sal_Int16(std::min(count, kLongestStep)), expand);
}

// A cursor over the piece of the paragraph; none when it holds another text, as where fields stand before it.
Reference<css::text::XTextCursor> CursorOver(const Reference<css::text::XTextRange>& paragraph,
                                             sal_Int32 start, const rtl::OUString& piece) {
    const auto cursor = paragraph->getText()->createTextCursorByRange(paragraph->getStart());
    GoRight(cursor, start, false);
    GoRight(cursor, piece.getLength(), true);
    return cursor->getString() == piece ? cursor : Reference<css::text::XTextCursor>();
}

Finding FindingOf(const SingleProofreadingError& error) {
    Finding finding;
    finding.start = error.nErrorStart;
    finding.length = error.nErrorLength;
    finding.isGrammar = true;
    finding.message = FromUno(error.aFullComment.isEmpty() ? error.aShortComment : error.aFullComment);
    finding.suggestions = FromUno(error.aSuggestions);
    return finding;
}

} // namespace

void UnoWriterSession::Read(const Reference<css::text::XText>& text) {
    m_unread.push_back(
        Reference<css::container::XEnumerationAccess>(text, UNO_QUERY_THROW)->createEnumeration());
}

// Adds the next part of what is unread to the paragraphs, or, where that is a table, its cells to what is
// unread. False at the end.
bool UnoWriterSession::ReadOn() {
    if (m_unread.empty())
        return false;
    const Reference<css::container::XEnumeration> parts = m_unread.back();
    if (!parts->hasMoreElements()) {
        m_unread.pop_back();
        return true;
    }
    const Any part = parts->nextElement();
    const Reference<css::text::XTextTable> table(part, UNO_QUERY);
    if (!table.is()) {
        m_paragraphs.push_back(Reference<css::text::XTextRange>(part, UNO_QUERY_THROW));
        return true;
    }
    const css::uno::Sequence<rtl::OUString> cells = table->getCellNames();
    for (sal_Int32 i = cells.getLength(); i-- > 0;)
        Read(Reference<css::text::XText>(table->getCellByName(cells[i]), UNO_QUERY_THROW));
    return true;
}

std::optional<QStringList> UnoWriterSession::NextParagraphs(bool isFirst, int most) {
    QStringList texts;
    const bool read = Succeeds([&] {
        if (!m_document.is())
            return false;
        if (isFirst) {
            m_paragraphs.clear();
            m_unread.clear();
            Read(m_document->getText());
        }
        while (texts.size() < most) {
            const std::size_t known = m_paragraphs.size();
            if (!ReadOn())
                break;
            if (m_paragraphs.size() > known)
                texts.append(FromUno(m_paragraphs.back()->getString()));
        }
        return true;
    });
    return read ? std::optional(texts) : std::nullopt;
}

// Text that is typed behind a character takes on its format; so the new text comes behind the first of the
// old ones, which go then.
bool UnoWriterSession::ReplaceInParagraph(int index, int start, const QString& old, const QString& text) {
    return Succeeds([&] {
        if (index < 0 || std::size_t(index) >= m_paragraphs.size() || old.isEmpty())
            return false;
        const auto& paragraph = m_paragraphs[std::size_t(index)];
        const auto over = CursorOver(paragraph, start, ToUno(old));
        if (!over.is())
            return false;
        const auto behindFirst = paragraph->getText()->createTextCursorByRange(over->getStart());
        behindFirst->goRight(1, false);
        paragraph->getText()->insertString(Reference<css::text::XTextRange>(behindFirst, UNO_QUERY_THROW),
                                           ToUno(text), false);
        const auto first = paragraph->getText()->createTextCursorByRange(paragraph->getStart());
        GoRight(first, start, false);
        const auto rest = paragraph->getText()->createTextCursorByRange(first->getStart());
        GoRight(rest, sal_Int32(text.size()) + 1, false);
        GoRight(rest, sal_Int32(old.size()) - 1, true);
        rest->setString(rtl::OUString());
        first->goRight(1, true);
        first->setString(rtl::OUString());
        return true;
    });
}

Reference<css::linguistic2::XSpellChecker> UnoWriterSession::SpellChecker() {
    if (!m_spellChecker.is())
        m_spellChecker = css::linguistic2::LinguServiceManager::create(m_context)->getSpellChecker();
    return m_spellChecker;
}

std::optional<QStringList> UnoWriterSession::Misspelt(const QStringList& words) {
    QStringList wrong;
    const bool asked = Succeeds([&] {
        const auto checker = SpellChecker();
        if (!checker.is() || !checker->hasLocale(Language()))
            return false;
        for (const QString& word : words)
            if (!checker->isValid(ToUno(word), Language(), {}))
                wrong.append(word);
        return true;
    });
    return asked ? std::optional(wrong) : std::nullopt;
}

std::optional<QStringList> UnoWriterSession::Suggestions(const QString& word) {
    QStringList suggestions;
    const bool asked = Succeeds([&] {
        const auto checker = SpellChecker();
        if (!checker.is())
            return false;
        const auto alternatives = checker->spell(ToUno(word), Language(), {});
        if (alternatives.is())
            suggestions = FromUno(alternatives->getAlternatives());
        return true;
    });
    return asked ? std::optional(suggestions) : std::nullopt;
}

// The proofreader of the language, or none where LibreOffice has none installed.
Reference<css::linguistic2::XProofreader> UnoWriterSession::Proofreader() {
    if (m_soughtProofreader)
        return m_proofreader;
    m_soughtProofreader = true;
    const auto manager = css::linguistic2::LinguServiceManager::create(m_context);
    const auto names = manager->getConfiguredServices("com.sun.star.linguistic2.Proofreader", Language());
    const auto available =
        names.hasElements()
            ? names
            : manager->getAvailableServices("com.sun.star.linguistic2.Proofreader", Language());
    if (available.hasElements())
        m_proofreader.set(m_context->getServiceManager()->createInstanceWithContext(available[0], m_context),
                          UNO_QUERY);
    return m_proofreader;
}

std::optional<std::vector<Finding>> UnoWriterSession::CheckGrammar(const QString& sentence) {
    std::vector<Finding> findings;
    const bool asked = Succeeds([&] {
        const auto proofreader = Proofreader();
        if (!proofreader.is())
            return true;
        const auto result = proofreader->doProofreading("quillbrook", ToUno(sentence), Language(), 0,
                                                        sal_Int32(sentence.size()), {});
        for (const SingleProofreadingError& error : result.aErrors)
            findings.push_back(FindingOf(error));
        return true;
    });
    return asked ? std::optional(findings) : std::nullopt;
}

} // namespace platform
