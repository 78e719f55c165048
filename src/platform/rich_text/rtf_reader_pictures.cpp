// Pictures of the text.
#include <algorithm>

#include "platform/rich_text/rtf_limits.h"
#include "platform/rich_text/rtf_reader_core.h"

namespace platform {
namespace {

// Of the words that tell a picture's kind, by their argument.
constexpr const char* kFormats[] = {"png", "jpeg", "wmf", "emf", "dib", "pict", "wbitmap"};

} // namespace

void RtfReader::OnPicture(const Word&) {
    if (!InBody()) {
        SkipGroup();
        return;
    }
    m_picture = {};
    m_state.destination = RtfDestination::Picture;
    m_borderTarget = BorderTarget::None;
}

void RtfReader::OnPictureKind(const Word& word) {
    if (m_state.destination == RtfDestination::Picture)
        m_picture.format = kFormats[word.argument];
}

void RtfReader::OnPictureNumber(const Word& word) {
    static constexpr int RtfPicture::*kMembers[] = {&RtfPicture::width,       &RtfPicture::height,
                                                    &RtfPicture::wantedWidth, &RtfPicture::wantedHeight,
                                                    &RtfPicture::scaleX,      &RtfPicture::scaleY};
    if (m_state.destination == RtfDestination::Picture)
        m_picture.*kMembers[word.argument] = m_token.parameter;
}

void RtfReader::EndPicture() {
    if (!InBody() || m_picture.bytes.isEmpty())
        return;
    const QTextImageFormat format = m_pictures.Add(m_picture, m_formats.At(CharFormat()));
    m_flow.Append(u"\uFFFC", m_formats.Add(format));
    m_picture = {};
}

} // namespace platform
