#include "ProcessorName.h"

#include "KeyedText.h"

#include <QStringList>

#include <array>

namespace {

struct ArmCore
{
    int implementer;
    int part;
    const char *name;
};

// The main ID register's implementer and part numbers of what runs desktops, boards and servers.
constexpr ArmCore armCores[] = {
    {0x41, 0xb76, "ARM1176"},
    {0x41, 0xc05, "ARM Cortex-A5"},
    {0x41, 0xc07, "ARM Cortex-A7"},
    {0x41, 0xc08, "ARM Cortex-A8"},
    {0x41, 0xc09, "ARM Cortex-A9"},
    {0x41, 0xc0d, "ARM Cortex-A12"},
    {0x41, 0xc0e, "ARM Cortex-A17"},
    {0x41, 0xc0f, "ARM Cortex-A15"},
    {0x41, 0xd03, "ARM Cortex-A53"},
    {0x41, 0xd04, "ARM Cortex-A35"},
    {0x41, 0xd05, "ARM Cortex-A55"},
    {0x41, 0xd07, "ARM Cortex-A57"},
    {0x41, 0xd08, "ARM Cortex-A72"},
    {0x41, 0xd09, "ARM Cortex-A73"},
    {0x41, 0xd0a, "ARM Cortex-A75"},
    {0x41, 0xd0b, "ARM Cortex-A76"},
    {0x41, 0xd0c, "ARM Neoverse N1"},
    {0x41, 0xd0d, "ARM Cortex-A77"},
    {0x41, 0xd40, "ARM Neoverse V1"},
    {0x41, 0xd41, "ARM Cortex-A78"},
    {0x41, 0xd42, "ARM Cortex-A78AE"},
    {0x41, 0xd44, "ARM Cortex-X1"},
    {0x41, 0xd46, "ARM Cortex-A510"},
    {0x41, 0xd47, "ARM Cortex-A710"},
    {0x41, 0xd48, "ARM Cortex-X2"},
    {0x41, 0xd49, "ARM Neoverse N2"},
    {0x41, 0xd4b, "ARM Cortex-A78C"},
    {0x41, 0xd4c, "ARM Cortex-X1C"},
    {0x41, 0xd4d, "ARM Cortex-A715"},
    {0x41, 0xd4e, "ARM Cortex-X3"},
    {0x41, 0xd4f, "ARM Neoverse V2"},
    {0x41, 0xd80, "ARM Cortex-A520"},
    {0x41, 0xd81, "ARM Cortex-A720"},
    {0x41, 0xd82, "ARM Cortex-X4"},
    {0x43, 0x0af, "Cavium ThunderX2"},
    {0x46, 0x001, "Fujitsu A64FX"},
    {0x48, 0xd01, "HiSilicon TaiShan v110"},
    {0x4e, 0x004, "NVIDIA Carmel"},
    {0x51, 0x001, "Qualcomm Oryon"},
    {0x51, 0x802, "Qualcomm Kryo 3xx Gold"},
    {0x51, 0x803, "Qualcomm Kryo 3xx Silver"},
    {0x51, 0x804, "Qualcomm Kryo 4xx Gold"},
    {0x51, 0x805, "Qualcomm Kryo 4xx Silver"},
    {0x61, 0x022, "Apple Icestorm"},
    {0x61, 0x023, "Apple Firestorm"},
    {0x61, 0x024, "Apple Icestorm"},
    {0x61, 0x025, "Apple Firestorm"},
    {0x61, 0x028, "Apple Icestorm"},
    {0x61, 0x029, "Apple Firestorm"},
    {0x61, 0x032, "Apple Blizzard"},
    {0x61, 0x033, "Apple Avalanche"},
    {0x61, 0x034, "Apple Blizzard"},
    {0x61, 0x035, "Apple Avalanche"},
    {0x61, 0x038, "Apple Blizzard"},
    {0x61, 0x039, "Apple Avalanche"},
    {0xc0, 0xac3, "Ampere-1"},
};

// Where other kernels write the name, the most telling first: "model name" on x86 and LoongArch (on 32-bit ARM it
// is no more than "ARMv7 Processor rev 3", so the table above goes first), "cpu model" on MIPS, "cpu" on POWER,
// "uarch" on RISC-V, "Hardware" (the chip) on older ARM boards.
constexpr std::array<const char *, 6> nameKeys{"model name", "Model Name", "cpu model",
                                               "cpu",        "uarch",      "Hardware"};

const char *armCoreName(int implementer, int part)
{
    for (const auto &core : armCores) {
        if (core.implementer == implementer && core.part == part)
            return core.name;
    }
    return nullptr;
}

/// The kinds of cores in the order of the kernel's list; empty on anything but ARM.
QString armName(QByteArrayView cpuinfo)
{
    QStringList names;
    // Each processor is a paragraph.
    while (!cpuinfo.isEmpty()) {
        const auto end = cpuinfo.indexOf("\n\n");
        const auto processor = end < 0 ? cpuinfo : cpuinfo.first(end);
        cpuinfo = end < 0 ? QByteArrayView() : cpuinfo.sliced(end + 2);

        const auto implementer = colonValue(processor, "CPU implementer");
        const auto part = colonValue(processor, "CPU part");
        if (!implementer || !part)
            continue;
        const auto *name =
            armCoreName(implementer->toByteArray().toInt(nullptr, 16), part->toByteArray().toInt(nullptr, 16));
        if (name && !names.contains(QLatin1String(name)))
            names.append(QLatin1String(name));
    }
    return names.join(QStringLiteral(" + "));
}

/// The last text of the list.
QByteArrayView lastCompatible(QByteArrayView compatible)
{
    while (compatible.endsWith('\0'))
        compatible.chop(1);
    return compatible.sliced(compatible.lastIndexOf('\0') + 1).trimmed();
}

} // namespace

std::optional<QString> processorName(QByteArrayView cpuinfo, QByteArrayView compatible)
{
    if (const auto name = armName(cpuinfo); !name.isEmpty())
        return name;
    for (const auto *key : nameKeys) {
        const auto name = colonValue(cpuinfo, key);
        if (name && !name->isEmpty())
            return QString::fromUtf8(*name);
    }
    const auto chip = lastCompatible(compatible);
    return chip.isEmpty() ? std::nullopt : std::optional(QString::fromUtf8(chip));
}
