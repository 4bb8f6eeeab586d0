#pragma once

class ApplicationRegistry;
class BackgroundPriority;
class BundleReader;
class CodeSignature;
class FileSystem;
class FolderChooser;
class HelperService;
class SystemFacts;
class Workspace;
struct MacDisk;

/// The services that the program is given at its start. They outlive everything that uses them.
struct Platform
{
    const FileSystem &fileSystem;
    const BundleReader &bundleReader;
    const CodeSignature &codeSignature;
    const ApplicationRegistry &applicationRegistry;
    const SystemFacts &systemFacts;
    const BackgroundPriority &backgroundPriority;
    Workspace &workspace;
    HelperService &helperService;
    FolderChooser &folderChooser;
    /// Null for the computer's own disk.
    const MacDisk *macDisk = nullptr;
};
