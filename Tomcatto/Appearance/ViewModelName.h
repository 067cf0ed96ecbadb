#pragma once

#include <QtCore/QObject>
#include <QtQml/qqml.h>

#ifdef Q_MOC_RUN
#define TOMCATTO_VIEW_MODEL_CLASS(Name) QML_FOREIGN(tomcatto::Name)
#define TOMCATTO_VIEW_VALUE_CLASS(Name) QML_FOREIGN(tomcatto::Name)
#else
#define TOMCATTO_VIEW_MODEL_CLASS(Name) QML_FOREIGN(QObject)
#define TOMCATTO_VIEW_VALUE_CLASS(Name)
#endif

/// Gives the class of an object that the program holds a name in the views' module. The class stays in the program,
/// which does without QML, and for the engine any object has that type. moc reads the class itself in its place, and
/// qmllint what moc wrote: a view that asks for what the class lacks fails the lint.
#define TOMCATTO_VIEW_MODEL(Name)                                                                                      \
    struct Name##Name                                                                                                  \
    {                                                                                                                  \
        Q_GADGET                                                                                                       \
        TOMCATTO_VIEW_MODEL_CLASS(Name)                                                                                \
        QML_NAMED_ELEMENT(Name)                                                                                        \
        QML_UNCREATABLE("the program makes it")                                                                        \
    };

/// The same for a class of values that view models have, and which views need no name for.
#define TOMCATTO_VIEW_VALUE(Name)                                                                                      \
    struct Name##Name                                                                                                  \
    {                                                                                                                  \
        Q_GADGET                                                                                                       \
        TOMCATTO_VIEW_VALUE_CLASS(Name)                                                                                \
        QML_ANONYMOUS                                                                                                  \
    };
