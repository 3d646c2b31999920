#include "gui/bind/mnemonics.h"

namespace tv::gui::bind {

namespace {

// A key every keyboard has: a Latin letter or a digit.
bool is_key(QChar c) {
    const char16_t u = c.toLower().unicode();
    return (u >= u'a' && u <= u'z') || (u >= u'0' && u <= u'9');
}

}  // namespace

QString plain_caption(const QString& shown) {
    QString out;
    out.reserve(shown.size());
    for (qsizetype i = 0; i < shown.size(); ++i) {
        if (shown[i] == u'&' && i + 1 < shown.size()) ++i;
        out += shown[i];
    }
    return out;
}

QChar mnemonic_of(const QString& shown) {
    for (qsizetype i = 0; i + 1 < shown.size(); ++i) {
        if (shown[i] != u'&') continue;
        if (shown[i + 1] == u'&') {
            ++i;
            continue;
        }
        // "X & Y" marks nothing: a key is a letter or a digit.
        return is_key(shown[i + 1]) ? shown[i + 1].toLower() : QChar();
    }
    return {};
}

QString with_mnemonic(const QString& caption, QChar keep, const QSet<QChar>& taken) {
    auto free = [&taken](QChar c) { return is_key(c) && !taken.contains(c.toLower()); };
    auto word_start = [&caption](qsizetype i) { return i == 0 || !caption[i - 1].isLetterOrNumber(); };
    auto kept = [&free, keep](QChar c) { return c.toLower() == keep && free(c); };
    qsizetype at = -1;
    // The key it had, then a word's first letter, then any letter or digit.
    for (int pass = keep.isNull() ? 2 : 0; pass < 4 && at < 0; ++pass)
        for (qsizetype i = 0; i < caption.size() && at < 0; ++i)
            if ((pass % 2 == 1 || word_start(i)) && (pass < 2 ? kept(caption[i]) : free(caption[i]))) at = i;
    // All taken ("II" beside "I"): the first key is shared, and Alt moves between its owners.
    for (qsizetype i = 0; i < caption.size() && at < 0; ++i)
        if (is_key(caption[i])) at = i;
    QString out;
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (i == at || caption[i] == u'&') out += u'&';
        out += caption[i];
    }
    return out;
}

}  // namespace tv::gui::bind
