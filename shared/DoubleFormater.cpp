#include "shared/DoubleFormater.h"

#include <algorithm>
#include <cmath>

namespace Orvida::Shared {

namespace {

int decimalsOf(const QString &format)
{
    const int point = format.indexOf(QLatin1Char('.'));
    if (point < 0)
        return 0;
    const auto isDigitPlace = [](QChar c) { return c == QLatin1Char('0') || c == QLatin1Char('#'); };
    return static_cast<int>(std::count_if(format.cbegin() + point, format.cend(), isDigitPlace));
}

// The number of decimals of a short positive number in plain digits, such as 12.50; -1 for any other text.
int plainDecimalsOf(const QString &value)
{
    const auto isDigit = [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); };
    const auto point = std::find_if_not(value.cbegin(), value.cend(), isDigit);
    const bool hasPoint = point != value.cend();
    const auto decimals = static_cast<int>(value.cend() - point) - hasPoint;
    const auto digits = static_cast<int>(point - value.cbegin());
    if (digits == 0 || (digits > 1 && value.at(0) == QLatin1Char('0')))
        return -1;
    if (hasPoint && (*point != QLatin1Char('.') || decimals == 0))
        return -1;
    return std::all_of(value.cend() - decimals, value.cend(), isDigit) ? decimals : -1;
}

} // namespace

QString DoubleFormater::toString(const QString &value, const QString &format)
{
    if (format.isEmpty())
        return value;
    // Fast path: most limits of catalogs are plain numbers, which only lack zeros. Everything else falls back
    // to Qt, also where the digits are more than a double holds exactly.
    constexpr int exactDigits = 15;
    const int decimals = decimalsOf(format);
    const int plainDecimals = plainDecimalsOf(value);
    if (plainDecimals >= 0 && plainDecimals <= decimals && value.size() + decimals <= exactDigits) {
        QString padded = value;
        if (plainDecimals == 0 && decimals > 0)
            padded += QLatin1Char('.');
        padded.resize(padded.size() + decimals - plainDecimals, QLatin1Char('0'));
        return padded;
    }
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(number))
        return value;
    return QString::number(number, 'f', decimals);
}

} // namespace Orvida::Shared
