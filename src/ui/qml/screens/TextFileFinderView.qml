import Tarnvale

/// Finds documents.
FinderView {
    help: Texts.of("text_help")
    chooseText: Texts.of("text_choose_folder")
    emptyTitle: Texts.of("text_empty_title")
    files: viewModel.textFiles
    folder: viewModel.selectedTextFolder
    categories: Presentation.textFileCategories
    selectedCategories: viewModel.selectedTextFileCategories
    canScan: viewModel.canScanTextFiles
    onFolderAskedFor: viewModel.chooseTextFolder()
    onScanAskedFor: viewModel.scanTextFiles()
    onCategoryToggled: category => viewModel.toggleTextFileCategory(category)
    onRevealAskedFor: row => viewModel.revealTextFile(row)
}
