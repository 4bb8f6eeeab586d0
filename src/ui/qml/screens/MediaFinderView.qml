import Tarnvale

/// Finds video, audio and images.
FinderView {
    help: Texts.of("media_help")
    chooseText: Texts.of("media_choose_folder")
    emptyTitle: Texts.of("media_empty_title")
    files: viewModel.mediaFiles
    folder: viewModel.selectedMediaFolder
    categories: Presentation.mediaCategories
    selectedCategories: viewModel.selectedMediaCategories
    canScan: viewModel.canScanMedia
    onFolderAskedFor: viewModel.chooseMediaFolder()
    onScanAskedFor: viewModel.scanMedia()
    onCategoryToggled: category => viewModel.toggleMediaCategory(category)
    onRevealAskedFor: row => viewModel.revealMediaFile(row)
}
