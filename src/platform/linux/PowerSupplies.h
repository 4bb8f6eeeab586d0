#pragma once

#include "SystemFacts.h"

class SystemFiles;

/// What /sys/class/power_supply tells. Reads every supply once. May wait for the firmware: see `LatestReading`.
///
/// - A battery is a supply of type "Battery" that is present and not of scope "Device": that one is a mouse's.
///   Of several, the first by name is described; how long they last counts all of them.
/// - Capacities are mAh: charge_* (µAh) as they are, else energy_* (µWh) divided by voltage_min_design, the
///   nominal voltage, or voltage_now. Where the firmware tells a percentage only, the capacity is taken from it:
///   of what the battery holds when full, or, where that is not told either, of 100.
/// - External power: any supply that is no battery and whose `online` is not 0, or any battery that charges.
///   Without either the computer runs on its batteries, if one of them discharges or a supply says offline.
/// - The estimate is what is left (energy_now, or charge_now times the voltage) divided by what is drawn
///   (power_now, or current_now times the voltage); more than ten days is no draw that could be measured.
/// - cycle_count 0 means that it is not counted. `health` is passed on only where it says good or poor: most of
///   its words are about the temperature of the moment.
PowerReading readPowerSupplies(const SystemFiles &files);
