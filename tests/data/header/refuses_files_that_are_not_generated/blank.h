
#pragma once
