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

} // namespace

QString DoubleFormater::toString(const QString &value, const QString &format)
{
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (format.isEmpty() || !isNumber || !std::isfinite(number))
        return value;
    return QString::number(number, 'f', decimalsOf(format));
}

} // namespace Orvida::Shared
