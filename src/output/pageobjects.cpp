#include "output/pageobjects.h"

QStringList TPage::texts() const
{
    QStringList result;
    for (const TPageObject &o : Objects)
        if (o.Kind == TPageObject::TextItem)
            result.append(o.Text);
    return result;
}
