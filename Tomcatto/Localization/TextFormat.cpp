#include "Localization/TextFormat.h"

namespace tomcatto {

namespace {

bool startsWithNumbered(QStringView text)
{
    return text.size() >= 4 && text.front() == u'%' && text.at(1) >= u'1' && text.at(1) <= u'9' &&
           text.mid(2).startsWith(u"$@");
}

}

QString fillPlaceholders(QStringView text, const QStringList &arguments)
{
    QString filled;
    qsizetype next = 0;
    for (QStringView rest = text; !rest.isEmpty();) {
        const bool isNumbered = startsWithNumbered(rest);
        const bool isNext = rest.startsWith(u"%@");
        const qsizetype argument = isNumbered ? rest.at(1).digitValue() - 1 : next;
        next += isNext ? 1 : 0;
        if ((isNumbered || isNext) && argument < arguments.size()) {
            filled += arguments.at(argument);
            rest = rest.mid(isNumbered ? 4 : 2);
        } else {
            filled += rest.front();
            rest = rest.mid(rest.startsWith(u"%%") ? 2 : 1);
        }
    }
    return filled;
}

}
