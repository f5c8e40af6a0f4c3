#include "fill/wordlist.h"

#include "clues/gridlanguage.h"
#include "model/cp1252.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

#include <array>
#include <memory>
#include <mutex>

namespace {

// What one character of a word becomes: up to two grid letters, nothing (it is dropped),
// or the word is left out.
constexpr uint16_t Reject = 0;
constexpr uint16_t Drop = 0xFFFF;
constexpr char32_t TableEnd = 0x250;  // Latin-1 and the Latin Extended letters

uint16_t twoLetters(char a, char b = 0)
{
    return uint16_t(uint8_t(a) | (uint8_t(b) << 8));
}

// The letters a character becomes in a language that admits `set`.
uint16_t mapCharacter(char32_t cp, const TCharSet &set)
{
    if (cp == U' ' || cp == U'\'' || cp == U'-' || cp == 0xA0 || cp == 0xAD || cp == 0x2BC)
        return Drop;
    if (cp >= U'a' && cp <= U'z')
        return twoLetters(char(cp - 32));
    if (cp >= U'A' && cp <= U'Z')
        return twoLetters(char(cp));
    const QChar ch{char16_t(cp)};
    if (!ch.isLetter())
        return Reject;
    QChar upper = ch.toUpper();  // ß has no single capital and stays ß
    const int code = UnicodeToCp1252(upper);
    if (code > 0 && set.test(size_t(code)) && code != 32 && code != 43)
        return twoLetters(char(code));
    switch (upper.unicode()) {
    case 0xC6: return twoLetters('A', 'E');  // Æ
    case 0x152: return twoLetters('O', 'E');  // Œ
    case 0xDF: return twoLetters('S', 'S');  // ß
    case 0xDE: return twoLetters('T', 'H');  // Þ
    case 0xD8: return twoLetters('O');        // Ø
    case 0xD0: case 0x110: return twoLetters('D');  // Ð Đ
    case 0x141: return twoLetters('L');       // Ł
    case 0x131: return twoLetters('I');       // dotless i
    default: break;
    }
    if (upper.decompositionTag() == QChar::Canonical) {
        const char16_t base = upper.decomposition().at(0).unicode();
        if (base >= u'A' && base <= u'Z')
            return twoLetters(char(base));
    }
    return Reject;
}

using TLanguageTable = std::array<uint16_t, TableEnd>;

const TLanguageTable &tableFor(int language)
{
    static const auto tables = [] {
        auto all = std::make_unique<std::array<TLanguageTable, GridLanguageCount>>();
        for (int l = 0; l < GridLanguageCount; ++l) {
            const TCharSet set = GridCharSetFor(l);
            for (char32_t cp = 0; cp < TableEnd; ++cp)
                (*all)[size_t(l)][cp] = mapCharacter(cp, set);
        }
        return all;
    }();
    return (*tables)[size_t(language >= 0 && language < GridLanguageCount ? language : 0)];
}

// Appends what `cp` becomes; false when the word is left out.
inline bool put(const TLanguageTable &table, char32_t cp, char *out, int &n)
{
    uint16_t m;
    if (cp < TableEnd)
        m = table[cp];
    else if (cp == 0x2019 || cp == 0x2018 || cp == 0x2010 || cp == 0x2011)  // typographic apostrophes, hyphens
        m = Drop;
    else if (cp == 0x1E9E)  // capital sharp s
        m = table[0xDF];
    else
        m = Reject;
    if (m == Reject)
        return false;
    if (m == Drop)
        return true;
    if (n >= MaxWordLength)
        return false;
    out[n++] = char(m & 0xFF);
    if (m >> 8) {
        if (n >= MaxWordLength)
            return false;
        out[n++] = char(m >> 8);
    }
    return true;
}

inline int finish(int n)
{
    return n >= MinWordLength ? n : 0;
}

// The next code point of UTF-8 text, or -1 for a malformed sequence.
inline int32_t nextUtf8(const uint8_t *&p, const uint8_t *end)
{
    const uint8_t b = *p++;
    if (b < 0x80)
        return b;
    int extra;
    int32_t cp;
    if ((b & 0xE0) == 0xC0) {
        extra = 1;
        cp = b & 0x1F;
    } else if ((b & 0xF0) == 0xE0) {
        extra = 2;
        cp = b & 0x0F;
    } else if ((b & 0xF8) == 0xF0) {
        extra = 3;
        cp = b & 0x07;
    } else {
        return -1;
    }
    if (end - p < extra)
        return -1;
    for (int i = 0; i < extra; ++i) {
        if ((p[i] & 0xC0) != 0x80)
            return -1;
        cp = (cp << 6) | (p[i] & 0x3F);
    }
    p += extra;
    return cp;
}

bool isUtf8(QByteArrayView bytes)
{
    const uint8_t *p = reinterpret_cast<const uint8_t *>(bytes.data());
    const uint8_t *end = p + bytes.size();
    while (p < end) {
        if (*p < 0x80) {
            ++p;
            continue;
        }
        if (nextUtf8(p, end) < 0)
            return false;
    }
    return true;
}

uint32_t hashOf(std::string_view word)
{
    uint32_t h = 2166136261u;
    for (char c : word)
        h = (h ^ uint8_t(c)) * 16777619u;
    // FNV's low bits cluster on short words; mix them before the table masks them off.
    h ^= h >> 16;
    h *= 0x85ebca6bu;
    h ^= h >> 13;
    h *= 0xc2b2ae35u;
    h ^= h >> 16;
    return h;
}

inline bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r';
}

std::string_view trimmed(std::string_view s)
{
    while (!s.empty() && isBlank(s.front()))
        s.remove_prefix(1);
    while (!s.empty() && isBlank(s.back()))
        s.remove_suffix(1);
    return s;
}

// A score of 0 to 100 in decimal digits; -1 for anything else.
int parseScore(std::string_view s)
{
    if (s.empty() || s.size() > 3)
        return -1;
    int value = 0;
    for (char c : s) {
        if (c < '0' || c > '9')
            return -1;
        value = value * 10 + (c - '0');
    }
    return value <= MaxWordScore ? value : -1;
}

// English: scowl's size levels, the commonest first.
struct ScowlLevel {
    int Level;
    int Score;
};
constexpr std::array<ScowlLevel, 8> ScowlLevels = {{
    {10, 100}, {20, 95}, {35, 85}, {40, 80}, {50, 70}, {55, 65}, {60, 60}, {70, 50},
}};

QString dictFolder()
{
    return QStringLiteral("/usr/share/dict");
}

}  // namespace

int NormaliseUtf8(std::string_view utf8, int language, char *out)
{
    const TLanguageTable &table = tableFor(language);
    const uint8_t *p = reinterpret_cast<const uint8_t *>(utf8.data());
    const uint8_t *end = p + utf8.size();
    int n = 0;
    while (p < end) {
        const int32_t cp = nextUtf8(p, end);
        if (cp < 0 || !put(table, char32_t(cp), out, n))
            return 0;
    }
    return finish(n);
}

int NormaliseCp1252(std::string_view bytes, int language, char *out)
{
    const TLanguageTable &table = tableFor(language);
    int n = 0;
    for (char b : bytes)
        if (!put(table, Cp1252ToUnicode(uint8_t(b)).unicode(), out, n))
            return 0;
    return finish(n);
}

QByteArray NormaliseWord(QStringView word, int language)
{
    const QByteArray utf8 = word.toUtf8();
    char out[MaxWordLength];
    const int n = NormaliseUtf8(std::string_view(utf8.constData(), size_t(utf8.size())), language, out);
    return QByteArray(out, n);
}

int TWordList::slotFor(std::string_view word, uint32_t hash) const
{
    const size_t mask = table_.size() - 1;
    for (size_t i = hash & mask;; i = (i + 1) & mask) {
        const Cell &cell = table_[i];
        if (cell.At < 0 || (cell.Hash == hash && this->word(cell.At) == word))
            return int(i);
    }
}

void TWordList::rehash(size_t cells)
{
    table_.assign(cells, Cell{});
    for (int i = 0; i < size(); ++i) {
        const uint32_t hash = hashOf(word(i));
        table_[size_t(slotFor(word(i), hash))] = {i, hash};
    }
}

int TWordList::find(std::string_view word) const
{
    if (table_.empty())
        return -1;
    return table_[size_t(slotFor(word, hashOf(word)))].At;
}

void TWordList::add(std::string_view word, int score)
{
    if ((entries_.size() + 1) * 2 > table_.size())
        rehash(std::max<size_t>(64, table_.size() * 2));
    const uint32_t hash = hashOf(word);
    Cell &cell = table_[size_t(slotFor(word, hash))];
    if (cell.At >= 0) {
        Entry &e = entries_[size_t(cell.At)];
        e.Score = uint8_t(std::max<int>(e.Score, score));
        return;
    }
    cell = {int32_t(entries_.size()), hash};
    entries_.push_back({uint32_t(chars_.size()), uint8_t(word.size()), uint8_t(score)});
    chars_.append(word);
}

void TWordList::addIfAbsent(std::string_view word, int score)
{
    if (!contains(word))
        add(word, score);
}

void TWordList::reserve(qsizetype words, qsizetype bytes)
{
    entries_.reserve(size_t(words));
    chars_.reserve(size_t(bytes));
    size_t cells = 64;
    while (cells < size_t(words) * 2)
        cells *= 2;
    if (cells > table_.size())
        rehash(cells);
}

TReadList ParseWordList(QByteArrayView bytes, int language, int plainScore)
{
    TReadList result;
    if (bytes.startsWith("\xEF\xBB\xBF"))
        bytes = bytes.sliced(3);
    if (bytes.contains('\0')) {
        result.Unreadable = true;
        result.Problems.append({0, QStringLiteral("not a word list")});
        return result;
    }
    const bool utf8 = isUtf8(bytes);
    // Roughly ten bytes a line; the list grows past that if it must.
    result.Words.reserve(bytes.size() / 10 + 16, bytes.size());
    const char *p = bytes.data();
    const char *end = p + bytes.size();
    char out[MaxWordLength];
    for (int line = 1; p < end; ++line) {
        const char *eol = static_cast<const char *>(memchr(p, '\n', size_t(end - p)));
        if (!eol)
            eol = end;
        std::string_view text = trimmed(std::string_view(p, size_t(eol - p)));
        p = eol + 1;
        if (text.empty())
            continue;
        int score = plainScore;
        const size_t semicolon = text.find(';');
        if (semicolon != std::string_view::npos) {
            score = parseScore(trimmed(text.substr(semicolon + 1)));
            text = trimmed(text.substr(0, semicolon));
            if (score < 0) {
                result.Problems.append({line, QStringLiteral("the score is not a whole number from 0 to 100")});
                continue;
            }
            if (text.empty()) {
                result.Problems.append({line, QStringLiteral("no word before the score")});
                continue;
            }
        }
        const int n = utf8 ? NormaliseUtf8(text, language, out) : NormaliseCp1252(text, language, out);
        if (n == 0) {
            ++result.LeftOut;
            continue;
        }
        result.Words.add(std::string_view(out, size_t(n)), score);
    }
    return result;
}

TReadList ReadWordListFile(const QString &path, int language, int plainScore)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        TReadList result;
        result.Unreadable = true;
        result.Problems.append({0, file.errorString()});
        return result;
    }
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        TReadList result;
        result.Unreadable = true;
        result.Problems.append({0, file.errorString()});
        return result;
    }
    return ParseWordList(bytes, language, plainScore);
}

QList<TDefaultListFile> DefaultListFiles(int language)
{
    QList<TDefaultListFile> files;
    const QString dict = dictFolder();
    auto addIfPresent = [&](const QString &path, int score) {
        if (QFileInfo::exists(path))
            files.append({path, score});
    };
    switch (language) {
    case 0:
        // Common words, then the names (upper-case) and abbreviations of the same level, lower.
        for (const ScowlLevel &level : ScowlLevels)
            for (const char *variant : {"english", "american", "british"}) {
                const QString stem = QStringLiteral("%1/scowl/%2-").arg(dict, QLatin1String(variant));
                const QString suffix = QStringLiteral(".%1").arg(level.Level);
                addIfPresent(stem + QStringLiteral("words") + suffix, level.Score);
                addIfPresent(stem + QStringLiteral("contractions") + suffix, level.Score);
                addIfPresent(stem + QStringLiteral("upper") + suffix, std::max(level.Score - 25, 5));
                addIfPresent(stem + QStringLiteral("abbreviations") + suffix, std::max(level.Score - 35, 5));
            }
        break;
    case 1: addIfPresent(dict + QStringLiteral("/french"), PlainWordScore); break;
    case 2: addIfPresent(dict + QStringLiteral("/spanish"), PlainWordScore); break;
    case 3: addIfPresent(dict + QStringLiteral("/italian"), PlainWordScore); break;
    case 4: addIfPresent(dict + QStringLiteral("/ngerman"), PlainWordScore); break;
    case 5: addIfPresent(dict + QStringLiteral("/swedish"), PlainWordScore); break;
    case 6: addIfPresent(dict + QStringLiteral("/bokmaal"), PlainWordScore); break;
    case 7: addIfPresent(dict + QStringLiteral("/danish"), PlainWordScore); break;
    case 8:
        for (int l = 0; l < 8; ++l)
            files += DefaultListFiles(l);
        break;
    default: break;
    }
    return files;
}

const TWordList &DefaultWordList(int language)
{
    static std::array<std::once_flag, GridLanguageCount> once;
    static std::array<TWordList, GridLanguageCount> lists;
    const size_t l = size_t(language >= 0 && language < GridLanguageCount ? language : 0);
    std::call_once(once[l], [&] {
        TWordList &words = lists[l];
        for (const TDefaultListFile &f : DefaultListFiles(int(l))) {
            TReadList read = ReadWordListFile(f.Path, int(l), f.Score);
            if (words.isEmpty()) {
                words = std::move(read.Words);
                continue;
            }
            for (int i = 0; i < read.Words.size(); ++i)
                words.add(read.Words.word(i), read.Words.score(i));
        }
    });
    return lists[l];
}

QString PersonalListPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/personal-words.txt");
}

TPersonalList ReadPersonalList(const QString &path)
{
    TPersonalList list;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return list;
    const QByteArray bytes = file.readAll();
    const bool utf8 = isUtf8(bytes);
    for (const QByteArray &raw : bytes.split('\n')) {
        const QByteArray line = raw.trimmed();
        if (line.isEmpty())
            continue;
        const QString text = utf8 ? QString::fromUtf8(line) : FromCp1252(line);
        if (text.startsWith(u'-')) {
            list.Excluded.append(text.mid(1).trimmed());
            continue;
        }
        const qsizetype semicolon = text.indexOf(u';');
        TPersonalWord w{text.left(semicolon).trimmed(), PlainWordScore};
        if (semicolon >= 0) {
            const QByteArray score = text.mid(semicolon + 1).trimmed().toLatin1();
            w.Score = parseScore(std::string_view(score.constData(), size_t(score.size())));
            if (w.Score < 0)
                w.Score = PlainWordScore;
        }
        list.Added.append(w);
    }
    return list;
}

bool WritePersonalList(const QString &path, const TPersonalList &list)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    QByteArray bytes;
    for (const TPersonalWord &w : list.Added)
        bytes += w.Word.toUtf8() + ';' + QByteArray::number(w.Score) + '\n';
    for (const QString &w : list.Excluded)
        bytes += '-' + w.toUtf8() + '\n';
    file.write(bytes);
    return file.commit();
}

TLoadedWords LoadWordLists(const TWordListConfig &config)
{
    TLoadedWords result;
    TWordList excluded;
    TWordList &words = result.Words;
    if (!config.PersonalPath.isEmpty()) {
        const TPersonalList personal = ReadPersonalList(config.PersonalPath);
        for (const QString &w : personal.Excluded) {
            const QByteArray n = NormaliseWord(w, config.Language);
            if (!n.isEmpty())
                excluded.add(std::string_view(n.constData(), size_t(n.size())), 0);
        }
        for (const TPersonalWord &w : personal.Added) {
            const QByteArray n = NormaliseWord(w.Word, config.Language);
            if (!n.isEmpty())
                words.addIfAbsent(std::string_view(n.constData(), size_t(n.size())), w.Score);
        }
    }
    auto merge = [&](auto &&list) {
        if (words.isEmpty()) {
            // A list read from a file is taken whole; the default lists are shared, so copied.
            words = std::forward<decltype(list)>(list);
            return;
        }
        words.reserve(words.size() + list.size(), 0);
        for (int i = 0; i < list.size(); ++i)
            words.addIfAbsent(list.word(i), list.score(i));
    };
    for (const TWordListSource &source : config.Sources) {
        if (!source.Enabled)
            continue;
        if (source.isDefault()) {
            const TWordList &list = DefaultWordList(config.Language);
            if (list.isEmpty())
                result.Problems.append(QStringLiteral("The default %1 list is not installed.")
                                           .arg(GridLanguageName(config.Language)));
            merge(list);
            continue;
        }
        const QString name = QFileInfo(source.Path).fileName();
        TReadList read = ReadWordListFile(source.Path, config.Language);
        if (read.Unreadable) {
            result.Unreadable.append(source.Path);
            result.Problems.append(QStringLiteral("%1: %2; the list is skipped")
                                       .arg(name, read.Problems.isEmpty() ? QString() : read.Problems.first().Message));
            continue;
        }
        for (const TListProblem &problem : read.Problems)
            result.Problems.append(QStringLiteral("%1: line %2: %3").arg(name).arg(problem.Line).arg(problem.Message));
        merge(std::move(read.Words));
    }
    if (excluded.isEmpty() && config.MinScore <= 0)
        return result;
    TWordList kept;
    kept.reserve(words.size(), 0);
    for (int i = 0; i < words.size(); ++i)
        if (words.score(i) >= config.MinScore && !excluded.contains(words.word(i)))
            kept.add(words.word(i), words.score(i));
    result.Words = std::move(kept);
    return result;
}
