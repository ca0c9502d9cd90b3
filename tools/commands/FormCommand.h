// orvida-catalog scramble and unscramble: from the readable form of a catalog to the one that hosts load, and
// back.
#pragma once

#include "tools/RewriteOptions.h"
#include "tools/TextForm.h"
#include "tools/commands/Command.h"

#include <QByteArray>
#include <QString>

namespace Orvida::Tools {

class FormCommand : public Command
{
public:
    /// The command that brings files into the form `target`.
    explicit FormCommand(TextForm target);
    int run() override;

private:
    void addOptions(CLI::App &command) override;
    bool refuses(const FormChange &change, const QString &name) const;
    QByteArray changed(const FormChange &change, const QString &name, int &status) const;

    const TextForm m_target;
    RewriteOptions m_options;
    bool m_isForced = false;
};

} // namespace Orvida::Tools
