#pragma once

#include <QCoreApplication>
#include <QString>

#include <vector>

namespace kestro {

/// One key of kestro.conf as a person chooses it in a window.
struct MoreOption {
    enum class Kind {
        Switch,  ///< of two values, the second of which is on
        Choice,  ///< of several; what else is stored is offered too
        Degrees, ///< a number, or nothing where it is not known
    };
    struct Value {
        QString stored; ///< as kestro.conf has it
        QString words;  ///< of a choice, what a person reads
    };

    Kind kind = Kind::Switch;
    QString section;
    QString key;
    QString title;             ///< with a letter for Alt
    QString explanation;       ///< one line
    std::vector<Value> values; ///< the first counts where nothing is stored; of degrees none
    double most = 0;           ///< of degrees, on both sides of nought
};

/// Some that belong together.
struct MoreGroup {
    QString title;
    std::vector<MoreOption> options;
};

/// What can be chosen besides what the saver's sheet and the settings window have. Tested by MoreWindowTest.
class MoreOptions final {
    Q_DECLARE_TR_FUNCTIONS(MoreOptions)

public:
    [[nodiscard]] static std::vector<MoreGroup> all();

private:
    static MoreGroup movies();
    static MoreGroup picture();
    static MoreGroup control();
    static MoreGroup place();
};

} // namespace kestro
