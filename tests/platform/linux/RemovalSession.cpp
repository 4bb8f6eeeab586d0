#include "DiskRoot.h"
#include "FakeBundleReader.h"
#include "LinuxFileSystem.h"
#include "LinuxHelperService.h"
#include "LinuxWorkspace.h"
#include "PrivilegedHelperClient.h"
#include "TrashService.h"

#include <QCoreApplication>

#include <iostream>
#include <string>

// Removes the items whose URIs it reads, one a line, from the disk in the folder of its first argument, as the
// product does, with the helper on the bus of its second argument. Writes one line for each: "moved", or why it
// was not.
int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const DiskRoot disk{QByteArray(argv[1])};
    const LinuxFileSystem fileSystem(disk, Url("/Users/me"), {});
    const FakeBundleReader bundles;
    LinuxWorkspace workspace(disk, fileSystem);
    LinuxHelperService helper(QString::fromLocal8Bit(argv[2]));
    PrivilegedHelperClient client(fileSystem, bundles, helper);
    TrashService service(fileSystem, bundles, workspace, client);

    QList<ScanItem> items;
    for (std::string line; std::getline(std::cin, line);)
        items.append({*Url::fromUri(line), ScanItemKind::cache, ScanConfidence::exact, 1, true});
    const auto outcomes = QCoro::waitFor(service.moveToTrash(items, "org.acme"));
    for (const auto &outcome : outcomes)
        std::cout << outcome.errorDescription.value_or("moved").toStdString() << std::endl;
}
