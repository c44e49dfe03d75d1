#pragma once

#include <QStringList>

/// An empty file that keeps a name free for a document; it goes when nothing was written into it. There is
/// one at a time.
class Reservation {
  public:
    Reservation() = default;
    ~Reservation() { giveBack(); }
    Reservation(const Reservation &) = delete;
    Reservation &operator=(const Reservation &) = delete;

    /// Takes the first name that is free, and gives it; the folder is made where it is missing. Throws
    /// WordError.
    static QString take(const QStringList &paths);
    /// What the destructor does. For any thread that holds halfWritten.
    static void remove();

  private:
    static void giveBack();
};
