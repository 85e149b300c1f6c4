#include <levelwidgets/activex/com/module_life.h>

#include <atomic>

namespace levelwidgets::activex {

namespace {
std::atomic<long> module_locks = 0;
}  // namespace

ModuleLock::ModuleLock() { Add(); }

ModuleLock::~ModuleLock() { Remove(); }

long ModuleLock::Count() { return module_locks; }

void ModuleLock::Add() { ++module_locks; }

void ModuleLock::Remove() { --module_locks; }

}  // namespace levelwidgets::activex
