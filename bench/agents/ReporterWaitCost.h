#pragma once

#include <QByteArray>

// Prints what a waiting reporter costs per minute, beside the bare poll of the decision file.
// root: a scratch folder; reporter: the installed reporter script.
void printReporterWaitCost(const QByteArray &root, const QByteArray &reporter);
