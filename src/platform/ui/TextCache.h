#pragma once

#include <QFont>
#include <QHash>
#include <QSizeF>
#include <QString>

#include <memory>

class QPainter;
class QTextLayout;

/// Texts as they were laid out: laying out is most of what painting a week takes, and the next picture has
/// the same texts.
class TextCache {
  public:
    TextCache();
    ~TextCache();
    TextCache(const TextCache &) = delete;
    TextCache &operator=(const TextCache &) = delete;

    struct Laid {
        std::shared_ptr<QTextLayout> layout;
        QSizeF size;
    };
    /// `text` in `width` pixels and at most `lines` lines `step` pixels apart, the last of which ends in an
    /// ellipsis where it is cut. `kind` stands for the font: one number, one font, until clear().
    const Laid &lay(const QString &text, const QFont &font, int kind, int width, int lines = 1, int step = 0);
    void clear();

  private:
    struct Key {
        QString text;
        int kind = 0;
        int width = 0;
        int lines = 0;

        friend bool operator==(const Key &, const Key &) = default;
        friend size_t qHash(const Key &key, size_t seed) {
            return qHashMulti(seed, key.text, key.kind, key.width, key.lines);
        }
    };
    QHash<Key, Laid> m_laid;
};
