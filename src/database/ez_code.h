#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// Messages in the packed form of "EZ Control": 16-bit words written as hexadecimal bytes, low byte first,
/// blanks between them. Word 0 is a checksum, word 1 tells the short form from the long one.

/// What stands in the fields of frmEZ. What reads as no number is 0.
struct EzFields {
    bool isLong = false; ///< optLong, else optShort

    /// @name Short form
    /// @{
    QString number; ///< txtSNr, counted from 1
    QString value;  ///< txtSWert
    /// @}

    /// @name Long form
    /// @{
    int type = -1; ///< list index of cmbTyp; -1 for none
    QString houseCode1;
    QString houseCode2;
    QString address;
    QString longValue; ///< txtValue, at most 255
    QString argument;
    QString repeat; ///< at least 1
    /// @}

    bool operator==(const EzFields&) const = default;
};

/// The entries of cmbTyp.
const QStringList& EzTypes();

/// The text of the message; nothing if the long form has no type. Numbers are limited to their word.
std::optional<QString> PackEZCode(const EzFields& fields);

/// The fields of a binary action text; nothing if it is no EZ message, or one of a type that isn't known. A
/// message of type 0 has none selected.
std::optional<EzFields> UnpackEZCode(QStringView text);

/// The checksum `sum` with one more word: a sum of ones' complements.
quint16 EZSum(quint16 sum, quint16 word);

/// Two hexadecimal bytes, low byte first, a blank between them.
QString WordToHexText(quint16 word);
/// The word at the start of `text`, in the same form.
quint16 HexTextToWord(QStringView text);
